#pragma once

#include "dg_openglExport.h"

#include <algorithm>
#include <vector>

class giPoint3;
class giTriangle;

/// The order that count chunks of a block are stored in. However many of them are taken from the first on, they lie
/// evenly spread over the block.
DG_OPENGL_EXPORT std::vector<unsigned> dg_gl_chunk_order(unsigned count);

/// Numbers of the triangles of a block that have more than four times the area of the mean one, the largest first. A
/// sample of a block with flat faces reads as the part when it starts with these.
DG_OPENGL_EXPORT std::vector<unsigned> dg_gl_large_triangles(const giPoint3* points, unsigned npoints,
                                                             const giTriangle* triangles, unsigned ntriangles);

/// Calls add for each triangle of a block that is not among the large ones, in the order in which they are stored
/// behind these, and close behind each chunk.
template <class Add, class Close>
void dg_gl_add_chunks(std::vector<unsigned> large, unsigned ntriangles, unsigned in_chunk, Add add, Close close)
{
    std::sort(large.begin(), large.end());
    for (const unsigned chunk : dg_gl_chunk_order((ntriangles + in_chunk - 1) / in_chunk))
    {
        const unsigned first = chunk * in_chunk, end = std::min(first + in_chunk, ntriangles);
        auto skipped = std::lower_bound(large.begin(), large.end(), first);
        for (unsigned triangle = first; triangle != end; ++triangle)
            if (skipped != large.end() && *skipped == triangle)
                ++skipped;
            else
                add(triangle);
        close();
    }
}
