#pragma once

#include <array>

/// What a time-out renderer knows of the primitives of one category, and has drawn of them.
struct grElementCategory
{
    long long count = 0; ///< in the network
    long long quota = 0; ///< to be drawn in a thinned frame, at most
    double ratio = 0;    ///< share of those met so far up to which a thinned frame draws more, from 0 to 1
    long long seen = 0;  ///< met so far in the present thinned frame
    long long drawn = 0; ///< drawn so far in it
    double rate = 0;     ///< drawn in a second; 0 when not measured
    double time = 0;     ///< seconds that the last measurement of the rate took
    long long prims = 0; ///< drawn in that time
};

/// By category number.
using grElementCategories = std::array<grElementCategory, 26>;
