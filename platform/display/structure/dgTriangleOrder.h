#pragma once

#include "dgExport.h"

#include <algorithm>
#include <vector>

struct dgGeometry;

/// Numbers of the triangles of a block that have more than four times the area of the mean one, the largest first.
/// Drivers store these before the others: a sample of a block with flat faces reads as the part when it starts with
/// them.
DG_EXPORT std::vector<unsigned> dg_large_triangles(const dgGeometry& block);

/// Calls add for each triangle of a block that is not among the large ones, in the order in which drivers store them
/// behind these, which is their own, and close behind each chunk.
template <class Add, class Close>
void dg_add_others(std::vector<unsigned> large, unsigned ntriangles, unsigned in_chunk, Add add, Close close)
{
    std::sort(large.begin(), large.end());
    auto skipped = large.begin();
    for (unsigned triangle = 0; triangle != ntriangles; ++triangle)
    {
        if (skipped != large.end() && *skipped == triangle)
            ++skipped;
        else
            add(triangle);
        if ((triangle + 1) % in_chunk == 0 || triangle + 1 == ntriangles)
            close();
    }
}
