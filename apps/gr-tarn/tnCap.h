#pragma once

#include "msBlocks.h"

class giPlane;

/// Fills the outline along which blocks were cut by a plane, whose positive side was kept. Nodes nearer to the plane
/// than the tolerance are taken for nodes of the outline, and nodes nearer to each other for the same: blocks that
/// share the positions of their common edges have one outline. The cap faces the negative side, with normals, and its
/// corners are nodes of the blocks.
///
/// Answers how many pieces of the outline do not close, because the mesh is open there; they are left out.
int tn_make_cap(const ms_blocks& blocks, const giPlane& plane, double tolerance, giTriBlock& cap);
