#pragma once

#include "coDList.h"

class dgBase;

/// Ordered list of display objects, not counted.
using dgBaseList = coDList<dgBase*>;
