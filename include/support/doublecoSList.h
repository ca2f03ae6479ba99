#pragma once

#include "coSList.h"

using doublecoSList = coSList<double>;
