#pragma once

#include "coDynArr.h"

/// A number of pixels; the array has one for each block, under its number.
using grPixelCount = int;
using grPixelCountcoDynArr = coDynArr<grPixelCount>;
