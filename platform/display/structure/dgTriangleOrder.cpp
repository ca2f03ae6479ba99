#include "dgTriangleOrder.h"

#include "dgGeometry.h"
#include "giPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

namespace
{
// By how much a triangle exceeds the mean area to be large: no more than one in so many does.
constexpr float large_factor = 4;
}

std::vector<unsigned> dg_large_triangles(const dgGeometry& block)
{
    const auto npoints = static_cast<unsigned>(block.npoints), ntriangles = static_cast<unsigned>(block.nfeatures);
    std::vector<float> areas(ntriangles);
    const auto point = [&](const giTriangle& triangle, int corner)
    {
        const auto node = static_cast<unsigned>(triangle[corner]);
        return block.points[node < npoints ? node : 0];
    };
    double sum = 0;
    for (unsigned i = 0; i < ntriangles && npoints; ++i)
    {
        const giPoint3 origin = point(block.triangles[i], 0);
        const giVector3 twice = (point(block.triangles[i], 1) - origin).cross(point(block.triangles[i], 2) - origin);
        areas[i] = static_cast<float>(twice.length());
        sum += areas[i];
    }
    const auto limit = static_cast<float>(large_factor * sum / std::max(ntriangles, 1u));
    std::vector<unsigned> large;
    for (unsigned i = 0; i < ntriangles; ++i)
        if (areas[i] > limit)
            large.push_back(i);
    std::stable_sort(large.begin(), large.end(), [&](unsigned a, unsigned b) { return areas[a] > areas[b]; });
    return large;
}
