#include "grTriCut.h"

#include "grCutFeature.h"
#include "grCutTriangle.h"
#include "grFlatCut.h"
#include "grTriCutter.h"

#include "giAngleDegrees.h"
#include "giVector2.h"
#include "giWorkplane3.h"
#include "gsTriUtils.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace
{
constexpr double edge_tolerance = 1e-5; // model units
constexpr double edge_tolerance_degrees = 1e-5;

gsTriEdge edge_of(const giTriangle& triangle, int k)
{
    return gsTriEdge(triangle.edge_start(k), triangle.edge_end(k));
}

bool intersects(const grTriCutter& cutter, const giPoint3& p, const giPoint3& q, double& t, giPoint3& point)
{
    int status = 0;
    double parameter = 0;
    giPoint3 meeting;
    cutter.intersect_edge(p, q, edge_tolerance, giAngleDegrees(edge_tolerance_degrees), status, parameter, meeting);
    if (!status || !(parameter >= 0 && parameter <= 1))
        return false;
    t = parameter;
    point = meeting;
    return true;
}

template <class T>
void interpolate_at(std::vector<T>& values, const gsTriEdge& edge, const grInterNode& node)
{
    if (node.invalid())
        return;
    const auto value =
        gr_interpolated(values[static_cast<std::size_t>(edge[0])], values[static_cast<std::size_t>(edge[1])], node.t());
    const auto index = static_cast<std::size_t>(node.index());
    if (index >= values.size())
        values.resize(index + 1);
    values[index] = value;
}

template <class T>
void interpolate_all(std::vector<T>& values, const gsTriEdgegrInterNodecoTable& table)
{
    for (const auto& [edge, node] : table)
        interpolate_at(values, edge, node);
}

template <class T>
void interpolate_listed(std::vector<T>& values, const gsTriEdgegrInterNodecoTable& table,
                        const std::vector<gsTriEdge>& edges)
{
    for (const gsTriEdge& edge : edges)
        if (const grInterNode* node = table.find(edge))
            interpolate_at(values, *table.find_key(edge), *node);
}

template <class T>
void reorder(std::vector<T>& values, const intintcoTable& old_to_new)
{
    std::vector<T> moved(static_cast<std::size_t>(old_to_new.count()));
    for (const auto& [from, to] : old_to_new)
        moved[static_cast<std::size_t>(to)] = values[static_cast<std::size_t>(from)];
    values = std::move(moved);
}
}

void grTriCut::cut(giTriBlock& block, const grTriCutter& cutter, int keep_negative,
                   gsTriEdgegrInterNodecoTable* cut_edges)
{
    const giBoxArrPoint3& nodes = gsTriUtils::get_nodes(block);
    std::vector<std::uint8_t> zones(static_cast<std::size_t>(nodes.count()));
    for (std::size_t i = 0; i < zones.size(); ++i)
        zones[i] = static_cast<std::uint8_t>(cutter.zone_node(nodes.data()[i]));
    std::vector<grFlatCut::cut_edge> known;
    if (cut_edges)
        for (const auto& [edge, node] : *cut_edges)
            if (!node.invalid())
                known.push_back({edge[0], edge[1], node.index(), node.t()});
    grFlatCut flat(
        block, std::move(zones),
        [&](int node_0, int node_1, double& t, giPoint3& point)
        { return intersects(cutter, nodes[node_0], nodes[node_1], t, point); },
        std::move(known));
    flat.run(keep_negative);
    if (cut_edges)
        gr_enter_cuts(flat, *cut_edges);
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
    return gr_edge_zone(*node_zones.find(edge[0]), *node_zones.find(edge[1]));
}

grZone grTriCut::zone_tri(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones)
{
    const auto zone = [&](int k) { return *edge_zones.find(edge_of(triangle, k)); };
    return gr_triangle_zone({zone(0), zone(1), zone(2)});
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
    if (!intersects(cutter, nodes[edge[0]], nodes[edge[1]], t, point))
        return grInterNode();
    nodes.append(point);
    return grInterNode(t, nodes.count() - 1);
}

void grTriCut::triangulate(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones,
                           const gsTriEdgegrInterNodecoTable& local, std::vector<giTriangle>& positive,
                           std::vector<giTriangle>& negative)
{
    std::array<grZone, 3> zones;
    std::array<int, 3> cuts;
    for (int k = 0; k < 3; ++k)
    {
        const gsTriEdge edge = edge_of(triangle, k);
        const grInterNode* node = local.find(edge);
        zones[static_cast<std::size_t>(k)] = *edge_zones.find(edge);
        cuts[static_cast<std::size_t>(k)] = node ? node->index() : -1;
    }
    gr_cut_up(triangle, zones, cuts, positive, negative);
}

void grTriCut::interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table)
{
    interpolate_all(normals, table);
}

void grTriCut::interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table)
{
    interpolate_all(tus, table);
}

void grTriCut::interpolate_vector_feature(std::vector<giVector3>& normals, const gsTriEdgegrInterNodecoTable& table,
                                          const std::vector<gsTriEdge>& edges)
{
    interpolate_listed(normals, table, edges);
}

void grTriCut::interpolate_point_feature(std::vector<giPoint2>& tus, const gsTriEdgegrInterNodecoTable& table,
                                         const std::vector<gsTriEdge>& edges)
{
    interpolate_listed(tus, table, edges);
}

void grTriCut::reorder_vector_feature(std::vector<giVector3>& normals, const intintcoTable& old_to_new)
{
    reorder(normals, old_to_new);
}

void grTriCut::reorder_point_feature(std::vector<giPoint2>& tus, const intintcoTable& old_to_new)
{
    reorder(tus, old_to_new);
}

double grTriCut::get_in_eps(double x)
{
    return std::min(1e-5, x / 20);
}

void grTriCut::cut(giTriBlock& block, const giWorkplane3& workplane, const giVector2& origin,
                   const giVector2& direction, double tolerance, std::vector<gsTriEdge>& edges, int keep_negative,
                   gsTriEdgegrInterNodecoTable* cut_edges)
{
    const giBoxArrPoint3& nodes = gsTriUtils::get_nodes(block);
    std::vector<giPoint2> work;
    to_work(nodes, workplane, work);
    std::vector<std::uint8_t> zones(work.size());
    for (std::size_t i = 0; i < work.size(); ++i)
        zones[i] = static_cast<std::uint8_t>(zone_node(work[i], origin, direction, tolerance));
    const auto at = [](int index) { return static_cast<std::size_t>(index); };
    grFlatCut flat(block, std::move(zones),
                   [&](int node_0, int node_1, double& t, giPoint3& point)
                   {
                       giPoint2 meeting;
                       if (!intersect_edge_t_p(work[at(node_0)], work[at(node_1)], origin, direction, t, meeting))
                           return false;
                       point = interpolate(nodes[node_0], nodes[node_1], t);
                       return true;
                   });
    flat.run(keep_negative);

    std::vector<std::uint8_t> final_zones(at(block.node_count()), grON_ZONE);
    for (int node = 0; node < static_cast<int>(work.size()); ++node)
        if (const int number = flat.new_number(node); number >= 0)
            final_zones[at(number)] = static_cast<std::uint8_t>(flat.zone(node));
    for (const giTriangle& triangle : block.triangles())
        for (int k = 0; k < 3; ++k)
            if (final_zones[at(triangle[k])] == grPOSITIVE_ZONE &&
                final_zones[at(triangle.edge_start(k))] == grON_ZONE &&
                final_zones[at(triangle.edge_end(k))] == grON_ZONE)
                edges.emplace_back(triangle.edge_start(k), triangle.edge_end(k));
    if (cut_edges)
        gr_enter_cuts(flat, *cut_edges);
}

void grTriCut::cut_with_workplane_uw_plane(giTriBlock& block, const giWorkplane3& workplane, double tolerance,
                                           std::vector<gsTriEdge>* edges, gsTriEdgegrInterNodecoTable* cut_edges)
{
    std::vector<gsTriEdge> unwanted;
    cut(block, workplane, giVector2(0, 0), giVector2(1, 0), tolerance, edges ? *edges : unwanted, 0, cut_edges);
}

void grTriCut::cut_triangle(const giTriangle& triangle, const giVector2& origin, const giVector2& axis,
                            double tolerance, std::vector<giPoint2>& work, giBoxArrPoint3& nodes,
                            gsTriEdgegrInterNodecoTable& shared, std::vector<giTriangle>& positive,
                            std::vector<giTriangle>& negative)
{
    intgrZonecoTable node_zones(4, 50);
    for (int vertex = 0; vertex < 3; ++vertex)
        node_zones.set(triangle[vertex],
                       zone_node(work[static_cast<std::size_t>(triangle[vertex])], origin, axis, tolerance));
    gsTriEdgegrZonecoTable edge_zones(4, 50);
    zone_edges({triangle}, node_zones, edge_zones);
    gr_cut_triangle(triangle, edge_zones, shared, positive, negative,
                    [&](const gsTriEdge& edge)
                    {
                        grInterNode node = intersect_edge(edge, origin, axis, work, nodes);
                        if (node.invalid())
                        {
                            node = grInterNode(0.0, nodes.count());
                            nodes.append(giPoint3(nodes[edge[0]]));
                            work.push_back(giPoint2(work[static_cast<std::size_t>(edge[0])]));
                        }
                        return node;
                    });
}

void grTriCut::find_potential_cuts(const std::vector<giTriangle>& triangles, const intgrZonecoTable& node_zones,
                                   std::vector<int>& potential)
{
    for (std::size_t i = 0; i < triangles.size(); ++i)
        for (int k = 0; k < 3; ++k)
            if (zone_edge(gsTriEdge(triangles[i].edge_start(k), triangles[i].edge_end(k)), node_zones) ==
                grSPANNING_ZONE)
            {
                potential.push_back(static_cast<int>(i));
                break;
            }
}

void grTriCut::to_work(const giBoxArrPoint3& nodes, const giWorkplane3& workplane, std::vector<giPoint2>& work)
{
    work.resize(static_cast<std::size_t>(nodes.count()));
    std::transform(nodes.begin(), nodes.end(), work.begin(),
                   [&workplane](const giPoint3& p) { return workplane.to_workplane(p); });
}

void grTriCut::zone_nodes(const std::vector<giPoint2>& work, const giVector2& origin, const giVector2& direction,
                          double tolerance, intgrZonecoTable& node_zones)
{
    for (std::size_t i = 0; i < work.size(); ++i)
        node_zones.set(static_cast<int>(i), zone_node(work[i], origin, direction, tolerance));
}

grZone grTriCut::zone_node(const giPoint2& point, const giVector2& origin, const giVector2& direction, double tolerance)
{
    const giVector2 offset = point.vector() - origin;
    // At the origin the tolerance is included, at the line it is not: both bounds are meant.
    if (offset.length() <= tolerance)
        return grON_ZONE;
    // The offset's length times the sine of its angle from the direction.
    const double distance = direction.unit().cross(offset);
    if (std::abs(distance) < tolerance)
        return grON_ZONE;
    return distance > 0 ? grPOSITIVE_ZONE : grNEGATIVE_ZONE;
}

grInterNode grTriCut::intersect_edge(const gsTriEdge& edge, const giVector2& origin, const giVector2& direction,
                                     std::vector<giPoint2>& work, giBoxArrPoint3& nodes)
{
    double t = 0;
    giPoint2 meeting;
    if (!intersect_edge_t_p(work[static_cast<std::size_t>(edge[0])], work[static_cast<std::size_t>(edge[1])], origin,
                            direction, t, meeting))
        return grInterNode();
    nodes.append(interpolate(nodes[edge[0]], nodes[edge[1]], t));
    work.push_back(meeting);
    return grInterNode(t, nodes.count() - 1);
}

int grTriCut::intersect_edge_t_p(const giPoint2& p, const giPoint2& q, const giVector2& origin,
                                 const giVector2& direction, double& t, giPoint2& point)
{
    const giVector2 unit = direction.unit();
    const double from = unit.cross(p.vector() - origin), to = unit.cross(q.vector() - origin);
    const double parameter = from / (from - to);
    // False for parallel segments as well, where it is no finite number.
    if (!(parameter >= 0 && parameter <= 1))
        return 0;
    t = parameter;
    point = giPoint2::interpolate(p, q, parameter);
    return 1;
}

giPoint3 grTriCut::interpolate(const giPoint3& p, const giPoint3& q, double t)
{
    return giPoint3::interpolate(p, q, t);
}
