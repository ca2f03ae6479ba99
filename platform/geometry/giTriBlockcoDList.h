#pragma once

#include "coDList.h"

class giTriBlock;

/// A list of triangle blocks, which it does not own.
using giTriBlockcoDList = coDList<giTriBlock*>;
