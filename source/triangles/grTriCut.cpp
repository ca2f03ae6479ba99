#include "grTriCut.h"

#include "grCutFeature.h"
#include "grCutTriangle.h"
#include "grFlatCut.h"
#include "grTriCutter.h"

#include "giAngleDegrees.h"
#include "gsContainerUtils.h"
#include "gsTriUtils.h"

#include <array>
#include <utility>

namespace
{
constexpr double edge_tolerance = 1e-5; // model units
constexpr double edge_tolerance_degrees = 1e-5;

gsTriEdge edge_of(const giTriangle& triangle, int k)
{
    return gsTriEdge(triangle.edge_start(k), triangle.edge_end(k));
}

int intersect(const grTriCutter& cutter, const giPoint3& p, const giPoint3& q, double& t, giPoint3& point)
{
    int status = 0;
    double parameter = 0;
    giPoint3 meeting;
    cutter.intersect_edge(p, q, edge_tolerance, giAngleDegrees(edge_tolerance_degrees), status, parameter, meeting);
    if (!status || !(parameter >= 0 && parameter <= 1))
        return 0;
    t = parameter;
    point = meeting;
    return 1;
}

// The cut on the public tables, for a caller's table that has entries already.
void cut_with_tables(giTriBlock& block, const grTriCutter& cutter, int keep_negative,
                     gsTriEdgegrInterNodecoTable& cut_edges)
{
    std::vector<giTriangle>& triangles = gsTriUtils::get_triangles(block);
    giBoxArrPoint3& nodes = gsTriUtils::get_nodes(block);
    intgrZonecoTable node_zones(4, 50);
    grTriCut::zone_nodes(triangles, nodes, cutter, node_zones);
    gsTriEdgegrZonecoTable edge_zones(4, 50);
    grTriCut::zone_edges(triangles, node_zones, edge_zones);

    intcoSet removed(4, 50);
    const int n_triangles = block.triangle_count();
    for (int i = 0; i < n_triangles; ++i)
    {
        const giTriangle triangle = triangles[static_cast<std::size_t>(i)];
        const grZone zone = grTriCut::zone_tri(triangle, edge_zones);
        if (zone == grON_ZONE || (zone == grNEGATIVE_ZONE && !keep_negative))
            removed.add(i);
        if (zone != grSPANNING_ZONE)
            continue;
        std::vector<giTriangle> positive, negative;
        grTriCut::cut_triangle(triangle, cutter, edge_zones, nodes, cut_edges, positive, negative);
        triangles.insert(triangles.end(), positive.begin(), positive.end());
        if (keep_negative)
            triangles.insert(triangles.end(), negative.begin(), negative.end());
        removed.add(i);
    }
    gsTriUtils::remove(removed, triangles);
    intintcoTable map(4, 50);
    gsTriUtils::remove_unused_nodes(triangles, nodes, map);

    // The map and the table both speak of the numbers before the removal, and so do the features until reordered.
    if (std::vector<giVector3>* normals = gsTriUtils::get_normals(block))
    {
        grTriCut::interpolate_vector_feature(*normals, cut_edges);
        grTriCut::reorder_vector_feature(*normals, map);
    }
    if (std::vector<giPoint2>* tus = gsTriUtils::get_tus(block))
    {
        grTriCut::interpolate_point_feature(*tus, cut_edges);
        grTriCut::reorder_point_feature(*tus, map);
    }
    if (auto* curvatures = block.curvatures())
    {
        std::vector<giTriBlock::curvature_pair> moved(static_cast<std::size_t>(map.count()));
        const auto number = [&map](int node) { return static_cast<std::size_t>(*map.find(node)); };
        for (int node = 0; node < static_cast<int>(curvatures->size()); ++node)
            if (map.contains(node))
                moved[number(node)] = (*curvatures)[static_cast<std::size_t>(node)];
        for (const auto& [edge, node] : cut_edges)
            if (map.contains(node.index()))
                moved[number(node.index())] =
                    gr_interpolated((*curvatures)[static_cast<std::size_t>(edge[0])],
                                    (*curvatures)[static_cast<std::size_t>(edge[1])], node.t());
        *curvatures = std::move(moved);
    }
}
}

void grTriCut::cut(giTriBlock& block, const grTriCutter& cutter, int keep_negative,
                   gsTriEdgegrInterNodecoTable* cut_edges)
{
    if (cut_edges && !cut_edges->empty())
    {
        cut_with_tables(block, cutter, keep_negative, *cut_edges);
        return;
    }
    const giBoxArrPoint3& nodes = gsTriUtils::get_nodes(block);
    std::vector<std::uint8_t> zones(static_cast<std::size_t>(nodes.count()));
    for (std::size_t i = 0; i < zones.size(); ++i)
        zones[i] = static_cast<std::uint8_t>(cutter.zone_node(nodes.data()[i]));
    grFlatCut flat(block, std::move(zones),
                   [&](int node_0, int node_1, double& t, giPoint3& point)
                   { return intersect(cutter, nodes[node_0], nodes[node_1], t, point); });
    flat.run(keep_negative);
    if (!cut_edges)
        return;
    cut_edges->reserve(static_cast<int>(flat.cuts().size()));
    for (const grFlatCut::cut_edge& cut : flat.cuts())
        cut_edges->set(gsTriEdge(cut.node_0, cut.node_1), grInterNode(cut.t, cut.index));
}

void grTriCut::zone_nodes(const std::vector<giTriangle>& triangles, const giBoxArrPoint3& nodes,
                          const grTriCutter& cutter, intgrZonecoTable& node_zones)
{
    for (const giTriangle& triangle : triangles)
        for (int vertex = 0; vertex < 3; ++vertex)
            if (!node_zones.contains(triangle[vertex]))
                node_zones.set(triangle[vertex], cutter.zone_node(nodes[triangle[vertex]]));
}

void grTriCut::zone_edges(const std::vector<giTriangle>& triangles, const intgrZonecoTable& node_zones,
                          gsTriEdgegrZonecoTable& edge_zones)
{
    for (const giTriangle& triangle : triangles)
        for (int k = 0; k < 3; ++k)
            if (const gsTriEdge edge = edge_of(triangle, k); !edge_zones.contains(edge))
                edge_zones.set(edge, zone_edge(edge, node_zones));
}

void grTriCut::zone_edges(const gsTriEdgecoSet& edges, const intgrZonecoTable& node_zones,
                          gsTriEdgegrZonecoTable& edge_zones)
{
    for (const gsTriEdge& edge : edges)
        edge_zones.set(edge, zone_edge(edge, node_zones));
}

grZone grTriCut::zone_edge(const gsTriEdge& edge, const intgrZonecoTable& node_zones)
{
    const grZone a = *node_zones.find(edge[0]), b = *node_zones.find(edge[1]);
    if (a == b)
        return a;
    if (a == grON_ZONE)
        return b;
    return b == grON_ZONE ? a : grSPANNING_ZONE;
}

grZone grTriCut::zone_tri(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones)
{
    using Pattern = std::array<grZone, 3>;
    static const std::pair<Pattern, grZone> patterns[] = {
        {{grON_ZONE, grON_ZONE, grON_ZONE}, grON_ZONE},
        {{grON_ZONE, grPOSITIVE_ZONE, grPOSITIVE_ZONE}, grPOSITIVE_ZONE},
        {{grON_ZONE, grNEGATIVE_ZONE, grNEGATIVE_ZONE}, grNEGATIVE_ZONE},
        {{grPOSITIVE_ZONE, grPOSITIVE_ZONE, grPOSITIVE_ZONE}, grPOSITIVE_ZONE},
        {{grNEGATIVE_ZONE, grNEGATIVE_ZONE, grNEGATIVE_ZONE}, grNEGATIVE_ZONE},
    };
    Pattern zones;
    for (int k = 0; k < 3; ++k)
        zones[static_cast<std::size_t>(k)] = *edge_zones.find(edge_of(triangle, k));
    gsContainerUtils::sort(zones);
    for (const auto& [pattern, zone] : patterns)
        if (gsContainerUtils::equal(zones, pattern))
            return zone;
    return grSPANNING_ZONE;
}

grZone grTriCut::zone_tri(const giTriangle& triangle, const intgrZonecoTable& node_zones)
{
    for (int vertex = 0; vertex < 3; ++vertex)
        if (const grZone zone = *node_zones.find(triangle[vertex]); zone != grON_ZONE)
            return zone;
    return grUNDETERMINED_ZONE;
}

void grTriCut::get_edges(const giTriangle& triangle, grZone zone, const gsTriEdgegrZonecoTable& edge_zones,
                         std::vector<gsTriEdge>& edges)
{
    for (int k = 0; k < 3; ++k)
        if (const gsTriEdge edge = edge_of(triangle, k); *edge_zones.find(edge) == zone)
            edges.push_back(edge);
}

void grTriCut::get_edges(const gsTriEdgegrInterNodecoTable& edge_table, grZone zone,
                         const gsTriEdgegrZonecoTable& edge_zones, std::vector<gsTriEdge>& edges)
{
    for (const auto& [edge, node] : edge_table)
        if (const grZone* found = edge_zones.find(edge); found && *found == zone)
            edges.push_back(edge);
}

void grTriCut::cut_triangle(const giTriangle& triangle, const grTriCutter& cutter,
                            const gsTriEdgegrZonecoTable& edge_zones, giBoxArrPoint3& nodes,
                            gsTriEdgegrInterNodecoTable& shared, std::vector<giTriangle>& positive,
                            std::vector<giTriangle>& negative)
{
    gr_cut_triangle(triangle, edge_zones, shared, positive, negative,
                    [&](const gsTriEdge& edge)
                    {
                        grInterNode node = intersect_edge(edge, cutter, nodes);
                        if (node.invalid())
                        {
                            node = grInterNode(0.0, nodes.count());
                            nodes.append(giPoint3(nodes[edge[0]]));
                        }
                        return node;
                    });
}

grInterNode grTriCut::intersect_edge(const gsTriEdge& edge, const grTriCutter& cutter, giBoxArrPoint3& nodes)
{
    double t = 0;
    giPoint3 point;
    if (!intersect(cutter, nodes[edge[0]], nodes[edge[1]], t, point))
        return grInterNode();
    nodes.append(point);
    return grInterNode(t, nodes.count() - 1);
}

void grTriCut::triangulate(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones,
                           const gsTriEdgegrInterNodecoTable& local, std::vector<giTriangle>& positive,
                           std::vector<giTriangle>& negative)
{
    giTriangle r;
    const auto zone_of = [&](int a, int b) { return *edge_zones.find(gsTriEdge(a, b)); };
    const auto node_on = [&](int a, int b) { return local.find(gsTriEdge(a, b))->index(); };
    if (local.count() == 1)
    {
        const auto& [edge, node] = *local.begin();
        gsTriUtils::renumber(r, triangle, gsTriUtils::edge_number(triangle, edge));
        const int first_is_positive = zone_of(r[0], r[1]) == grPOSITIVE_ZONE;
        (first_is_positive ? positive : negative).emplace_back(r[0], r[1], node.index());
        (first_is_positive ? negative : positive).emplace_back(r[0], node.index(), r[2]);
    }
    else if (local.count() == 2)
    {
        std::vector<gsTriEdge> uncut;
        get_edges(triangle, grPOSITIVE_ZONE, edge_zones, uncut);
        const int pair_is_positive = !uncut.empty();
        if (uncut.empty())
            get_edges(triangle, grNEGATIVE_ZONE, edge_zones, uncut);
        if (uncut.empty())
            return;
        gsTriUtils::renumber(r, triangle, gsTriUtils::edge_number(triangle, uncut.front()));
        const int x = node_on(r[0], r[1]), y = node_on(r[2], r[0]);
        std::vector<giTriangle>& pair = pair_is_positive ? positive : negative;
        pair.emplace_back(x, r[1], y);
        pair.emplace_back(y, r[1], r[2]);
        (pair_is_positive ? negative : positive).emplace_back(r[0], x, y);
    }
}
