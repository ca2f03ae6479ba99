#pragma once

#include "dg_openglExport.h"

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <vector>

/// Triangles over vertices of their own. Vertices in one position have one place, by which vertices of several shapes
/// are known to be the same.
struct dgGLShape
{
    std::vector<float> positions;       ///< three a vertex
    std::vector<float> normals;         ///< three a vertex, of any length, or none at all
    std::vector<std::uint32_t> places;  ///< by vertex, each below the number of places
    std::vector<std::uint32_t> indices; ///< three a triangle
    /// Three for each side of each triangle, the first of which leads to its second corner: by how much the normal in
    /// the middle of the side is off the mean of those at its ends. None where normals are linear between corners.
    std::vector<float> bends;
};

/// Moves the vertices of a coarse shape and turns their normals so that what lies between them comes as near as it can
/// to the fine shape that it stands for: by least squares over the vertices of the fine one, each where it is nearest
/// to a triangle of the coarse one, weighted by the area around it. So normals are means of what is gone, and bulges
/// and silhouettes do not lose what chords cut off.
///
/// Where the coarse shape is to be curved, its normals vary quadratically over each triangle, as those of PN triangles
/// do (Vlachos, Peters, Boyd and Mitchell 2001), and are found together with what they are in the middles of sides: so
/// one facet shows the shades of many. Neighbours that share two vertices share what is between them.
///
/// The places of the coarse shape are places of the fine one, all below the length of fixed_places. Where that is not
/// 0, and where vertices share a place, as along creases, they stay where they are. So do vertices on open outlines,
/// which keep their normals too. What a stop leaves behind is of no use.
DG_OPENGL_EXPORT void dg_gl_fit(const dgGLShape& fine, dgGLShape& coarse, const std::vector<char>& fixed_places,
                                bool curved, const std::stop_token& stop);
