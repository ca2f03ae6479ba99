#include "dg_cap_tblocks.h"

#include "dgGLTessellator.h"

#include "giOutline.h"
#include "giPlane.h"
#include "giTriBlock.h"
#include "giWorkplane3.h"

#include <cmath>
#include <unordered_map>

int dg_cap_tblocks(const giTriBlockcoDList& blocks, const giPlane& plane, double tolerance, giTriBlock& cap)
{
    const giWorkplane3 workplane(giPlane(plane.point(), -plane.normal())); // faces as the cap does
    giOutline outline(workplane, tolerance);
    for (const giTriBlock* block : blocks)
    {
        const auto on_plane = [&](int node) {
            return node >= 0 && node < block->node_count() &&
                   std::abs(plane.distance(block->nodes()[node])) < tolerance;
        };
        for (const giTriangle& t : block->triangles())
            for (int k = 0; k < 3; ++k)
                if (on_plane(t.edge_start(k)) && on_plane(t.edge_end(k)))
                    // The cap lies on the other side of the edge.
                    outline.add(block->nodes()[t.edge_end(k)], block->nodes()[t.edge_start(k)]);
    }
    std::vector<std::vector<int>> loops;
    const int open_pieces = outline.take_loops(loops);

    // The tessellator's points are those of the contours, one after the other, and crossings behind them.
    std::vector<std::vector<giPoint2>> contours;
    std::vector<int> nodes;
    for (const std::vector<int>& loop : loops)
    {
        std::vector<giPoint2>& contour = contours.emplace_back();
        for (const int node : loop)
            contour.push_back(outline.flat_corner(node));
        nodes.insert(nodes.end(), loop.begin(), loop.end());
    }
    dgGLTriangles filling;
    dg_gl_tessellate(contours, filling);

    std::vector<int> numbers(filling.points.size(), -1);
    std::unordered_map<int, int> numbers_of_nodes;
    std::vector<giVector3>& normals = cap.create_normals();
    for (const giTriangle& found : filling.triangles)
    {
        giTriangle triangle(found);
        for (int k = 0; k < 3; ++k)
        {
            const auto corner = static_cast<std::size_t>(found[k]);
            const int is_node = corner < nodes.size();
            int& number = is_node ? numbers_of_nodes.try_emplace(nodes[corner], -1).first->second : numbers[corner];
            if (number < 0)
            {
                number = cap.node_count();
                cap.nodes().append(is_node ? outline.corner(nodes[corner])
                                           : workplane.to_world(filling.points[corner]));
                normals.push_back(-plane.normal());
            }
            triangle[k] = number;
        }
        cap.triangles().push_back(triangle);
    }
    return open_pieces;
}
