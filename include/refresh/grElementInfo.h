#pragma once

/// What a time-out renderer knows of one primitive of a network.
struct grElementInfo
{
    int count = 0;      ///< primitives that it counts as
    int category = 0;   ///< see dgGraphicalPrimitive::category
    int run_length = 0; ///< how many elements directly after it are of the same category
};
