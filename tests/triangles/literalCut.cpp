#include "literalCut.h"

#include "meshes.h"

#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <utility>

using meshes::at;

namespace
{
using Edge = std::pair<int, int>; // lower number first

Edge edge(int a, int b)
{
    return {std::min(a, b), std::max(a, b)};
}

struct NewNode
{
    int from, to, index;
    double t;
};

struct Cut
{
    giTriBlock block;
    giPlane plane;
    std::map<int, int> zones;
    std::map<Edge, NewNode> cut_edges;

    int edge_zone(int a, int b) const
    {
        const int za = zones.at(a), zb = zones.at(b);
        return za == zb ? za : za == 1 ? zb : zb == 1 ? za : 4;
    }

    int node_on(int a, int b)
    {
        const auto known = cut_edges.find(edge(a, b));
        if (known != cut_edges.end())
            return known->second.index;
        const giPoint3 p = block.nodes()[a], q = block.nodes()[b];
        const double da = plane.distance(p), db = plane.distance(q), t = da / (da - db);
        const double steepness = std::abs(db - da) / p.distance(q);
        const bool meets = steepness > std::sin(1e-5 / 180 * std::numbers::pi) && t >= 0 && t <= 1;
        const NewNode node{a, b, block.node_count(), meets ? t : 0};
        block.nodes().append(meets ? giPoint3(p + (q - p) * t) : p);
        cut_edges[edge(a, b)] = node;
        return node.index;
    }

    void cut_triangle(const giTriangle& t, std::vector<giTriangle>& positive, std::vector<giTriangle>& negative)
    {
        std::map<Edge, int> local;
        for (int k = 0; k < 3; ++k)
            if (const int a = t[(k + 1) % 3], b = t[(k + 2) % 3]; edge_zone(a, b) == 4)
                local[edge(a, b)] = node_on(a, b);
        if (local.size() == 1)
            for (int k = 0; k < 3; ++k)
            {
                const int r0 = t[k], r1 = t[(k + 1) % 3], r2 = t[(k + 2) % 3];
                if (!local.contains(edge(r1, r2)))
                    continue;
                const int m = local.at(edge(r1, r2));
                (edge_zone(r0, r1) == 2 ? positive : negative).emplace_back(r0, r1, m);
                (edge_zone(r0, r1) == 2 ? negative : positive).emplace_back(r0, m, r2);
                return;
            }
        if (local.size() != 2)
            return;
        for (const int zone : {2, 3})
            for (int k = 0; k < 3; ++k)
            {
                const int r0 = t[k], r1 = t[(k + 1) % 3], r2 = t[(k + 2) % 3];
                if (edge_zone(r1, r2) != zone)
                    continue;
                const int x = local.at(edge(r0, r1)), y = local.at(edge(r2, r0));
                (zone == 2 ? positive : negative).emplace_back(x, r1, y);
                (zone == 2 ? positive : negative).emplace_back(y, r1, r2);
                (zone == 2 ? negative : positive).emplace_back(r0, x, y);
                return;
            }
    }
};
}

giTriBlock literal_cut(const giTriBlock& original, const giPlane& plane, double tolerance, bool keep_negative)
{
    Cut cut{original, plane, {}, {}};
    for (const giTriangle& t : original.triangles())
        for (int k = 0; k < 3; ++k)
        {
            const double d = plane.distance(original.nodes()[t[k]]);
            cut.zones[t[k]] = std::abs(d) < tolerance ? 1 : d > 0 ? 2 : 3;
        }
    std::vector<giTriangle> kept, pieces;
    for (const giTriangle& t : original.triangles())
    {
        const std::multiset<int> zones{cut.edge_zone(t[1], t[2]), cut.edge_zone(t[2], t[0]), cut.edge_zone(t[0], t[1])};
        using Zones = std::multiset<int>;
        if (zones == Zones{1, 1, 1})
            continue;
        if (zones == Zones{1, 2, 2} || zones == Zones{2, 2, 2})
            kept.push_back(t);
        else if (zones == Zones{1, 3, 3} || zones == Zones{3, 3, 3})
        {
            if (keep_negative)
                kept.push_back(t);
        }
        else
        {
            std::vector<giTriangle> positive, negative;
            cut.cut_triangle(t, positive, negative);
            pieces.insert(pieces.end(), positive.begin(), positive.end());
            if (keep_negative)
                pieces.insert(pieces.end(), negative.begin(), negative.end());
        }
    }
    kept.insert(kept.end(), pieces.begin(), pieces.end());

    std::set<int> used;
    for (const giTriangle& t : kept)
        used.insert({t[0], t[1], t[2]});
    std::map<int, int> numbers;
    for (const int node : used)
        numbers.emplace(node, static_cast<int>(numbers.size()));
    giTriBlock result;
    for (const giTriangle& t : kept)
        result.triangles().emplace_back(numbers.at(t[0]), numbers.at(t[1]), numbers.at(t[2]));
    for (const int node : used)
        result.nodes().append(cut.block.nodes()[node]);

    std::map<int, NewNode> sources; // of the values at each node
    for (int node = 0; node < original.node_count(); ++node)
        sources[node] = {node, node, node, 0};
    for (const auto& [ends, node] : cut.cut_edges)
        sources[node.index] = node;
    if (const auto* normals = original.normals())
        for (const auto& [node, number] : numbers)
        {
            const NewNode& source = sources.at(node);
            const giVector3 &a = (*normals)[at(source.from)], &b = (*normals)[at(source.to)];
            result.create_normals()[at(number)] = (b - a).length() <= 1e-5 ? a : a + (b - a) * source.t;
        }
    if (const auto* texture = original.texture_coordinates())
        for (const auto& [node, number] : numbers)
        {
            const NewNode& source = sources.at(node);
            const giPoint2 &a = (*texture)[at(source.from)], &b = (*texture)[at(source.to)];
            result.create_texture_coordinates()[at(number)] =
                (b - a).length() <= 1e-5 ? a : giPoint2::interpolate(a, b, source.t);
        }
    return result;
}
