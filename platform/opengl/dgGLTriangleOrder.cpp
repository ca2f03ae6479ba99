#include "dgGLTriangleOrder.h"

#include "giPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace
{
// By how much a triangle exceeds the mean area to be large: no more than one in so many does.
constexpr float large_factor = 4;
}

std::vector<unsigned> dg_gl_chunk_order(unsigned count)
{
    // Multiples of the golden section, taken round, lie evenly on the circle however many are taken: entry k is the
    // rank of the k-th multiple among all of them. In units of 2^-32 of a turn no two of them meet.
    constexpr std::uint32_t golden_section = 2654435769u;
    std::vector<unsigned> by_place(count);
    std::iota(by_place.begin(), by_place.end(), 0u);
    std::sort(by_place.begin(), by_place.end(),
              [](unsigned a, unsigned b) { return a * golden_section < b * golden_section; });
    std::vector<unsigned> order(count);
    for (unsigned rank = 0; rank < count; ++rank)
        order[by_place[rank]] = rank;
    return order;
}

std::vector<unsigned> dg_gl_large_triangles(const giPoint3* points, unsigned npoints, const giTriangle* triangles,
                                            unsigned ntriangles)
{
    std::vector<float> areas(ntriangles);
    const auto point = [&](const giTriangle& triangle, int corner)
    {
        const auto node = static_cast<unsigned>(triangle[corner]);
        return points[node < npoints ? node : 0];
    };
    double sum = 0;
    for (unsigned i = 0; i < ntriangles && npoints; ++i)
    {
        const giPoint3 origin = point(triangles[i], 0);
        const giVector3 twice = (point(triangles[i], 1) - origin).cross(point(triangles[i], 2) - origin);
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
