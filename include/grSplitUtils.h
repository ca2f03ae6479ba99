#pragma once

#include "grExport.h"
#include "grPixelCount.h"

/// Helpers of a split.
class GR_EXPORT grSplitUtils
{
public:
    /// Makes it n counts of 0.
    static void init(grPixelCountcoDynArr& counts, int n);
    /// Divides a rectangle into about n zones in first rows and second columns, so that second / first comes near to
    /// the aspect (width by height). Below 2 zones there is one column, and first is n rounded, which can be 0.
    static void find_zone_layout(double n, double aspect, int& first, int& second);
};
