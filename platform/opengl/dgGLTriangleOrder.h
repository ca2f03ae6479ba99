#pragma once

#include "dg_openglExport.h"

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
