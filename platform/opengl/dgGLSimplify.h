#pragma once

#include "dg_openglExport.h"

#include <cstdint>
#include <stop_token>
#include <vector>

/// A triangle block in arrays of its own, so that a thread may work on it.
struct dgGLMesh
{
    std::vector<float> positions;       ///< three a vertex, as they are drawn
    std::vector<float> normals;         ///< three a vertex, of any length, or none at all
    std::vector<std::uint32_t> indices; ///< three a triangle, each below the number of vertices
};

/// A triangle block drawn with fewer triangles, and how it joins its neighbours in a mix.
///
/// The coarser of two successive levels replaces patches of the finer one, each inside an outline that both share. So
/// any patches of the finer level and the rest of the coarser one are a picture without gaps. The triangles of a level
/// are grouped by the patch that they replace, and in each of these groups by the patch that they belong to.
struct DG_OPENGL_EXPORT dgGLLevel
{
    std::vector<std::uint32_t> indices; ///< of the vertices of the block, and behind them those of the level's own
    std::vector<float> positions;       ///< of vertices of its own, three each, as they are drawn
    std::vector<float> normals;         ///< of these, of any length; none where the block has none
    /// Where it is curved, nine a triangle, as dgGLShape has them; then all of its vertices are its own.
    std::vector<float> bends;
    float error = 0; ///< model units by which it may be off the block: of all collapses so far, estimated

    unsigned patches = 1;                 ///< that the next, coarser level replaces; 1 when there is none
    std::vector<std::uint32_t> starts{0}; ///< by group and by patch in it: first triangle; and the number of triangles

    unsigned triangles() const { return starts.back(); }
    unsigned groups() const { return static_cast<unsigned>((starts.size() - 1) / patches); }
    std::uint32_t start(unsigned group, unsigned patch) const { return starts[group * patches + patch]; }
};

/// Levels of a block: one with about a third of its triangles, and each further one with less than half of those
/// of the one before as far as that goes, down to a few dozen. By edge collapse under a quadric error (Garland and
/// Heckbert 1997), as meshoptimizer does it. Vertices in one position count as one, and of these a corner takes the one
/// whose normal is the nearest to its triangle's. The open outlines of a block stay as they are, so that blocks that
/// meet go on to meet. Levels of a tenth of the triangles and fewer have vertices of their own, which are fitted to
/// what they stand for (dg_gl_fit), and those of a thirtieth and fewer are curved.
///
/// None when a stop is asked for, which is answered within a fraction of a second.
DG_OPENGL_EXPORT std::vector<dgGLLevel> dg_gl_simplify(dgGLMesh mesh, const std::stop_token& stop);
