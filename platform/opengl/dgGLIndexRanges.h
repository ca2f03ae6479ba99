#pragma once

#include "dg_openglExport.h"

#include <cstddef>
#include <vector>

/// Ranges of the index buffer, in the form that a multi-draw takes. A range that continues the one before joins it when
/// both have the same local origin and both are curved or not.
struct DG_OPENGL_EXPORT dgGLIndexRanges
{
    std::vector<int> counts;
    std::vector<const void*> offsets; // in bytes

    /// Successive ranges with one origin and one kind of normals, drawn together.
    struct Part
    {
        unsigned origin;
        int curved;
        std::size_t end; ///< one behind its last range
    };
    std::vector<Part> parts;

    unsigned origin = 0; ///< of the ranges that are added next
    int curved = 0;      ///< whether the vertices of these have bends (dgGLBends)

    bool empty() const { return counts.empty(); }
    void clear();
    void add(unsigned first_index, unsigned count);
};
