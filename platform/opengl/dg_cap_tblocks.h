#pragma once

#include "dg_openglExport.h"
#include "giTriBlockcoDList.h"

class giPlane;

/// Fills the outline along which blocks were cut by a plane, whose positive side was kept (grTriCut::cut). It is found
/// over all blocks together, which need not be closed one by one. Nodes nearer to the plane than the tolerance, in
/// model units and above 0, are taken for nodes of the outline, and nodes nearer to each other for the same: blocks
/// that share the positions of their common edges have one outline.
///
/// The triangles are added to cap. They face the negative side, with normals, and their corners are nodes of the
/// blocks, and points where the outline crosses itself. Holes stay open; an outline inside a hole is filled.
///
/// Answers how many pieces of the outline do not close, because the mesh is open there; they are left out.
DG_OPENGL_EXPORT int dg_cap_tblocks(const giTriBlockcoDList& blocks, const giPlane& plane, double tolerance,
                                    giTriBlock& cap);
