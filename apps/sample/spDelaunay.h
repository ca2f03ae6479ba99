#pragma once

#include "giBoxArrPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <vector>

/// Turns inner edges of a plane triangulation until it is as near to equilateral as its nodes and outer edges allow
/// (the constrained Delaunay triangulation), which also removes triangles of no area. The normal is that of the
/// triangles.
///
/// Source: C. L. Lawson, "Software for C1 surface interpolation", 1977: an edge is turned when the angles opposite to
/// it sum up to more than half a turn.
void sp_make_delaunay(const giBoxArrPoint3& nodes, const giVector3& normal, std::vector<giTriangle>& triangles);
