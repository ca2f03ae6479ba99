#pragma once

#include "grExport.h"

class giAngle;
class giTriBlock;

/// Gives a block the normals of its surface, smooth where that is smooth and split at its sharp edges, whatever nodes
/// its triangles share: three nodes for each triangle will do, as in a file that lists corners.
///
/// Triangles that meet at a place belong to one surface there when their normals differ by no more than the crease
/// angle (and 0.08 degrees, for what rounding leaves), directly or through others at that place; where more than 256
/// meet, each is compared with the 256 that follow it. Each surface has one node at the place. Its normal has length 1
/// and is the mean of the normals of the triangles, weighted by their angles there (G. Thürmer and C. Wüthrich,
/// "Computing vertex normals from polygonal facets", 1998), in single precision; it is null where no triangle has an
/// area.
///
/// Nodes at a place that differ in texture coordinates or curvatures stay apart, with these and the common normal.
/// Nodes that no triangle uses are dropped, and triangles with two corners at one place. The others keep their order;
/// nodes come in the order of the first old node at their place. Places are equal when all coordinates are.
///
/// joined 1 says that no two nodes lie at one place, which saves the search for them.
///
/// Large blocks are worked on by as many threads as the machine has processors, which end before it returns; the result
/// does not depend on their number.
GR_EXPORT void gr_smooth_tblock(giTriBlock& block, const giAngle& crease, int joined = 0);

/// Makes nodes that are equal one, that is those at one place with the same texture coordinates and curvatures and with
/// normals that agree to five decimals. Nodes and triangles are dropped, and threads used, as above; nodes keep their
/// order.
GR_EXPORT void gr_join_tblock(giTriBlock& block);
