#pragma once

#include "coSet.h"
#include "coTable.h"
#include "dgExport.h"
#include "giTriBlock.h"

#include <vector>

class giAngle;
class giPlane;
class gsTriEdge;

using intcoSet = coSet<int>;
using intintcoTable = coTable<int, int>;

/// Operations on the arrays of triangle blocks.
class DG_EXPORT gsTriUtils
{
public:
    /// The arrays of a block; the last two are null when the block has none (see giTriBlock::create_normals and
    /// create_texture_coordinates).
    static giBoxArrPoint3& get_nodes(giTriBlock& block) { return block.nodes(); }
    static const giBoxArrPoint3& get_nodes(const giTriBlock& block) { return block.nodes(); }
    static std::vector<giTriangle>& get_triangles(giTriBlock& block) { return block.triangles(); }
    static const std::vector<giTriangle>& get_triangles(const giTriBlock& block) { return block.triangles(); }
    static std::vector<giVector3>* get_normals(giTriBlock& block) { return block.normals(); }
    static const std::vector<giVector3>* get_normals(const giTriBlock& block) { return block.normals(); }
    static std::vector<giPoint2>* get_tus(giTriBlock& block) { return block.texture_coordinates(); }
    static const std::vector<giPoint2>* get_tus(const giTriBlock& block) { return block.texture_coordinates(); }

    /// Removes the triangles whose numbers are in the set; the others keep their order.
    static void remove(const intcoSet& indices, std::vector<giTriangle>& triangles);

    /// Removes the nodes that no triangle uses, keeping the order of the others, and renumbers the triangles. map,
    /// which should be empty, receives the new number of every node that is kept under its old one.
    static void remove_unused_nodes(std::vector<giTriangle>& triangles, giBoxArrPoint3& nodes, intintcoTable& map);

    /// Which edge of the triangle this is, 0 to 2 (edge k is opposite vertex k), in either direction; -1 for none.
    static int edge_number(const giTriangle& triangle, const gsTriEdge& edge);

    /// Sets out to the same triangle, orientation kept, with its vertices moved round so that its edge k becomes edge
    /// 0.
    static void renumber(giTriangle& out, const giTriangle& triangle, int k);

    /// Intersects the segment from p to q with a plane. status becomes 1 when the segment meets the plane, within the
    /// distance tolerance at its ends, and makes an angle greater than the tolerance with it; else 0. With status 1, t
    /// is the parameter of the meeting point from p (0) to q (1), which may lie outside that range by the tolerance,
    /// and point the meeting point; else both are unchanged.
    static void intersect(const giPoint3& p, const giPoint3& q, const giPlane& plane, double distance_tolerance,
                          const giAngle& angular_tolerance, int& status, double& t, giPoint3& point);
};
