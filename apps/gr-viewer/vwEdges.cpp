#include "vwEdges.h"

#include "vwParts.h"

#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"
#include "grSelection.h"
#include "utTypeID.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace
{
constexpr double least_cosine = 0.866; // of the angle at which two triangles make an edge
// Of the depth between the planes, by which lines lie before the surface that they are on.
constexpr double lift = 2e-3;

struct Edge
{
    int triangle;
    int count;
    bool sharp;
};

std::vector<std::vector<int>> find_edges(const giTriBlock& block)
{
    const auto& nodes = block.nodes();
    const auto& triangles = block.triangles();
    const auto normal = [&](int i)
    {
        const giTriangle& t = triangles[static_cast<std::size_t>(i)];
        const giVector3 n = (nodes[t[1]] - nodes[t[0]]).cross(nodes[t[2]] - nodes[t[0]]);
        return n.length() > 0 ? n.unit() : n;
    };
    std::unordered_map<std::uint64_t, Edge> edges;
    edges.reserve(triangles.size() * 2);
    for (int i = 0; i < block.triangle_count(); ++i)
        for (int k = 0; k < 3; ++k)
        {
            const giTriangle& t = triangles[static_cast<std::size_t>(i)];
            const auto a = static_cast<std::uint64_t>(t[k]), b = static_cast<std::uint64_t>(t[(k + 1) % 3]);
            const auto [entry, is_new] = edges.try_emplace(std::min(a, b) << 32 | std::max(a, b), Edge{i, 1, false});
            if (is_new)
                continue;
            ++entry->second.count;
            entry->second.sharp |= normal(i).dot(normal(entry->second.triangle)) < least_cosine;
        }
    // Joined to long lines: few elements are drawn sooner than many.
    std::unordered_map<int, std::vector<int>> next;
    for (const auto& [key, edge] : edges)
        if (edge.count != 2 || edge.sharp)
        {
            const int a = static_cast<int>(key >> 32), b = static_cast<int>(key & 0xFFFFFFFF);
            next[a].push_back(b);
            next[b].push_back(a);
        }
    std::vector<std::vector<int>> lines;
    for (auto& [start, ends] : next)
        while (!ends.empty())
        {
            std::vector<int>& line = lines.emplace_back(1, start);
            for (int at = start; !next[at].empty();)
            {
                const int to = next[at].back();
                next[at].pop_back();
                auto& back = next[to];
                back.erase(std::find(back.begin(), back.end(), at));
                line.push_back(to);
                at = to;
            }
        }
    return lines;
}
}

void vwEdges::draw(dgView& view, const giXform3& placing)
{
    the_edges.resize(the_parts.size());
    const dgRef<dgClientStructure> all(new dgClientStructure);
    all->add(new dgLineColour(gsColour(0.05, 0.06, 0.07)));
    all->add(new dgTransform(placing));
    for (std::size_t i = 0; i < the_parts.size(); ++i)
    {
        const dgElementPath& path = the_parts[i].path;
        const dgTriangleBlock* block = ut_cast<dgTriangleBlock>(path.back().get());
        if (!block || !the_selection.is_shown(path))
            continue;
        Edges& edges = the_edges[i];
        if (edges.of != block)
        {
            edges = {block, dgRef<dgClientStructure>(new dgClientStructure)};
            for (const std::vector<int>& line : find_edges(block->block()))
            {
                std::vector<giPoint3> points;
                for (const int node : line)
                    points.push_back(block->block().nodes()[node]);
                the_n_lines += static_cast<long long>(points.size()) - 1;
                edges.lines->add(new dgPolyline(std::move(points)));
            }
        }
        all->add(new dgStructureCall(edges.lines.get()));
    }
    dgCamera camera = view.camera();
    const double step = lift * (camera.front_plane() - camera.back_plane());
    camera.front_back_plane(camera.front_plane() - step, camera.back_plane() - step);
    view.begin();
    view.renderer()->set_camera(&camera);
    view.execute_structure(*all);
    view.end();
}
