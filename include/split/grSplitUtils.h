#pragma once

#include "grExport.h"
#include "grPixelCount.h"

/// Helpers of a split.
class GR_EXPORT grSplitUtils
{
public:
    /// Makes it n counts of 0.
    static void init(grPixelCountcoDynArr& counts, int n);
    /// Divides a rectangle into a grid of about n zones: sets first to the number of rows, one above the other, and
    /// second to the number of columns, side by side. Columns over rows come as near as they can to the aspect of the
    /// rectangle, its width over its height, so that zones are nearly square. With n below 2 there is one column and
    /// first is n rounded to a whole number, which can be 0. More than a million zones are taken for a million, no
    /// number for 0.
    static void find_zone_layout(double n, double aspect, int& first, int& second);
};
