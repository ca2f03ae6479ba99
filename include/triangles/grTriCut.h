#pragma once

#include "giPoint2.h"
#include "grExport.h"
#include "grTriCutTables.h"

#include <vector>

class giBoxArrPoint3;
class giPoint3;
class giTriangle;
class giTriBlock;
class giVector2;
class giVector3;
class giWorkplane3;
class grTriCutter;

/// Cuts triangle blocks open along a surface.
///
/// Triangles that the surface passes through are split along it; what lies on the positive side is kept, and with a
/// flag the negative side too, so that no triangle straddles the surface any more. All pieces keep the orientation of
/// their triangle, and both neighbours at a cut edge use the same new node. Triangles that lie in the surface go.
///
/// Lengths are in the units of the block. No function keeps anything between calls. Lists that functions append to are
/// not cleared first.
class GR_EXPORT grTriCut
{
public:
    /// Cuts a block. keep_negative not 0 keeps what lies on the negative side as well.
    ///
    /// The triangles that stay come first, in their order, then for each cut triangle the pieces on the positive side
    /// and then, if kept, those on the negative side. Nodes that no triangle uses are removed, also when nothing is
    /// cut; the others keep their order, new ones follow. Normals, texture coordinates and curvatures of new nodes are
    /// interpolated along the edge (normals are not made unit vectors again); curvatures are marked as missing where
    /// one end misses them.
    ///
    /// An edge that cannot be intersected, because it is parallel to the surface within 1e-5 degrees or its coordinates
    /// are no finite numbers, is given a new node at its node 0.
    ///
    /// cut_edges, which may be null, receives every edge that was cut, with node numbers as they were before unused
    /// nodes were removed. It should be empty: the nodes of edges that are in it already are used as they are, and must
    /// be nodes of the block; those of invalid ones are made.
    static void cut(giTriBlock& block, const grTriCutter& cutter, int keep_negative,
                    gsTriEdgegrInterNodecoTable* cut_edges = nullptr);

    /// Sets the zone of every node that the triangles use and that has none in the table.
    static void zone_nodes(const std::vector<giTriangle>& triangles, const giBoxArrPoint3& nodes,
                           const grTriCutter& cutter, intgrZonecoTable& node_zones);
    /// Sets the zone of every edge of the triangles that has none in the table, or of every edge of a set, from those
    /// of its nodes, which must be there.
    static void zone_edges(const std::vector<giTriangle>& triangles, const intgrZonecoTable& node_zones,
                           gsTriEdgegrZonecoTable& edge_zones);
    static void zone_edges(const gsTriEdgecoSet& edges, const intgrZonecoTable& node_zones,
                           gsTriEdgegrZonecoTable& edge_zones);
    /// The zone that both ends have; that of one end where the other lies on the surface; else spanning.
    static grZone zone_edge(const gsTriEdge& edge, const intgrZonecoTable& node_zones);
    /// From the zones of its edges: on the surface, positive, negative, or spanning when it must be cut.
    static grZone zone_tri(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones);
    /// The zone of the first vertex that does not lie on the surface; undetermined when all do.
    static grZone zone_tri(const giTriangle& triangle, const intgrZonecoTable& node_zones);

    /// Appends those of the triangle's edges 0, 1 and 2 that are in a zone.
    static void get_edges(const giTriangle& triangle, grZone zone, const gsTriEdgegrZonecoTable& edge_zones,
                          std::vector<gsTriEdge>& edges);
    /// The same for the edges that are in a table, in no particular order.
    static void get_edges(const gsTriEdgegrInterNodecoTable& edge_table, grZone zone,
                          const gsTriEdgegrZonecoTable& edge_zones, std::vector<gsTriEdge>& edges);

    /// Cuts one triangle and appends its pieces. New nodes are appended to nodes and entered in the table, where those
    /// of edges that a neighbour shares are found.
    static void cut_triangle(const giTriangle& triangle, const grTriCutter& cutter,
                             const gsTriEdgegrZonecoTable& edge_zones, giBoxArrPoint3& nodes,
                             gsTriEdgegrInterNodecoTable& shared, std::vector<giTriangle>& positive,
                             std::vector<giTriangle>& negative);
    /// Intersects an edge and appends the new node. Invalid, and nothing appended, when they do not meet within the
    /// edge. The tolerances are 1e-5 and 1e-5 degrees whatever the cutter's own is.
    static grInterNode intersect_edge(const gsTriEdge& edge, const grTriCutter& cutter, giBoxArrPoint3& nodes);
    /// Appends the pieces of a triangle with one or two of its edges in the table; with any other number there are
    /// none.
    static void triangulate(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones,
                            const gsTriEdgegrInterNodecoTable& local, std::vector<giTriangle>& positive,
                            std::vector<giTriangle>& negative);

    /// Sets the values of new nodes from those at the ends of their edges: that of node 0 where both are within 1e-5 of
    /// each other, else the one at t between them. The array grows as needed. Invalid nodes are passed over.
    static void interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table);
    static void interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table);
    /// The same for those edges of a list that are in the table. The direction that counts is that of the table's key.
    static void interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table,
                                           const std::vector<gsTriEdge>& edges);
    static void interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table,
                                          const std::vector<gsTriEdge>& edges);
    /// Moves each value from its old node number to the new one that the map gives, and cuts the array to the new
    /// count.
    static void reorder_vector_feature(std::vector<giVector3>& normals, const intintcoTable& old_to_new);
    static void reorder_point_feature(std::vector<giPoint2>& tus, const intintcoTable& old_to_new);

    /// A tolerance that suits a length: 1e-5, or a twentieth of the length where that is less.
    static double get_in_eps(double x);

    // Cutting in the 2-D coordinates of a workplane: along a line in it, that is by the plane through the line and the
    // normal of the workplane. Origin and direction are in workplane coordinates; the direction has any length but 0.
    // The positive side lies to the left of the direction, seen against the normal.

    /// Cuts a block along a line, as cut above, but what cut_edges holds already has no effect. edges receives the
    /// edges of the resulting block with both ends on the line and a triangle on the positive side, in the direction
    /// that this triangle has them and in the final numbering: the outline of the cut, which a cap would fill.
    static void cut(giTriBlock& block, const giWorkplane3& workplane, const giVector2& origin,
                    const giVector2& direction, double tolerance, std::vector<gsTriEdge>& edges, int keep_negative = 0,
                    gsTriEdgegrInterNodecoTable* cut_edges = nullptr);
    /// Cuts by the plane of the workplane's x axis (u) and its normal (w), keeping the side of the positive y axis.
    /// edges and cut_edges may be null.
    static void cut_with_workplane_uw_plane(giTriBlock& block, const giWorkplane3& workplane, double tolerance,
                                            std::vector<gsTriEdge>* edges, gsTriEdgegrInterNodecoTable* cut_edges);
    /// Cuts one triangle along a line; work holds the workplane coordinates of the nodes and grows with them.
    static void cut_triangle(const giTriangle& triangle, const giVector2& origin, const giVector2& axis,
                             double tolerance, std::vector<giPoint2>& work, giBoxArrPoint3& nodes,
                             gsTriEdgegrInterNodecoTable& shared, std::vector<giTriangle>& positive,
                             std::vector<giTriangle>& negative);
    /// Appends the numbers of the triangles that a cut would split, in their order.
    static void find_potential_cuts(const std::vector<giTriangle>& triangles, const intgrZonecoTable& node_zones,
                                    std::vector<int>& potential);
    /// The workplane coordinates of all nodes.
    static void to_work(const giBoxArrPoint3& nodes, const giWorkplane3& workplane, std::vector<giPoint2>& work);
    /// Sets the zone of every point under its number.
    static void zone_nodes(const std::vector<giPoint2>& work, const giVector2& origin, const giVector2& direction,
                           double tolerance, intgrZonecoTable& node_zones);
    /// On the line when not further than the tolerance from the origin or nearer than the tolerance to the line;
    /// positive to the left of the direction, else negative.
    static grZone zone_node(const giPoint2& point, const giVector2& origin, const giVector2& direction,
                            double tolerance);
    /// Intersects an edge with the line and appends the new node, to work as well. Invalid, and nothing appended, when
    /// they do not meet within the edge.
    static grInterNode intersect_edge(const gsTriEdge& edge, const giVector2& origin, const giVector2& direction,
                                      std::vector<giPoint2>& work, giBoxArrPoint3& nodes);
    /// Where the segment from p to q meets the line: sets t and point and returns 1, or returns 0 where they are
    /// parallel or do not meet within the segment, ends included.
    static int intersect_edge_t_p(const giPoint2& p, const giPoint2& q, const giVector2& origin,
                                  const giVector2& direction, double& t, giPoint2& point);
    /// The point at t between p (0) and q (1).
    static giPoint3 interpolate(const giPoint3& p, const giPoint3& q, double t);
};
