#pragma once

#include "dg_openglExport.h"

#include <vector>

/// Ranges of the index buffer, in the form that a multi-draw takes. A range that continues the one before joins it.
struct DG_OPENGL_EXPORT dgGLIndexRanges
{
    std::vector<int> counts;
    std::vector<const void*> offsets; // in bytes

    bool empty() const { return counts.empty(); }
    void clear();
    void add(unsigned first_index, unsigned count);
};
