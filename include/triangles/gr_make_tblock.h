#pragma once

#include "grExport.h"

#include <vector>

class giBox3;
class giPoint3;
class giTriangle;
class giTriBlock;
class giXform3;

/// Makes a block of the nodes and triangles given. Every node has a normal of length 1: the mean of those of its
/// triangles, weighted by their areas (null at a node without area around it). The caller owns the block. Null when a
/// triangle names a node that is not there.
GR_EXPORT giTriBlock* gr_make_tblock(const std::vector<giPoint3>& nodes, const std::vector<giTriangle>& triangles);

/// Makes a block in the shape of a box: 6 faces of 2 triangles and 4 nodes each, facing outwards, with the normal of
/// the face at every node and texture coordinates from (0, 0) to (1, 1) on every face. The caller owns the block. Null
/// for an empty box.
GR_EXPORT giTriBlock* gr_make_box_tblock(const giBox3& box);

/// The same for a cube about the centre; side is the length of its edges, in model units.
GR_EXPORT giTriBlock* gr_make_cube(const giPoint3& centre, double side);

/// Moves a block by a transform. Normals stay normals of the surface, of length 1, under any invertible affine
/// transform. One that mirrors turns the triangles over, so that the outside stays outside.
GR_EXPORT void gr_transform_tblock(giTriBlock& block, const giXform3& xform);
