#include "grCutTriangle.h"
#include "grFlatCut.h"
#include "grTriCut.h"

#include "giVector2.h"
#include "giWorkplane3.h"
#include "gsTriUtils.h"

#include <algorithm>
#include <cmath>

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
                           return 0;
                       point = interpolate(nodes[node_0], nodes[node_1], t);
                       return 1;
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
        for (const grFlatCut::cut_edge& cut : flat.cuts())
        {
            const gsTriEdge edge(cut.node_0, cut.node_1);
            cut_edges->remove(edge); // its key may have the other direction
            cut_edges->set(edge, grInterNode(cut.t, cut.index));
        }
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
