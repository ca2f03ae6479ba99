#include "dgFeatureTree.h"

#include "dgGeometry.h"
#include "dgMortonCode.h"
#include "giTriangle.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace
{
constexpr std::size_t group_features = 8;

giBox3 box_of(const dgGeometry& geometry, int feature)
{
    giBox3 box;
    int points[3];
    for (int i = dg_feature_points(geometry, feature, points); i-- > 0;)
        box.merge(geometry.points[points[i]]);
    return box;
}

// Sorts numbers by their high 32 bits, of which 30 are used, ten bits at a time.
void sort_by_high_bits(std::vector<std::uint64_t>& numbers)
{
    constexpr int bits = 10;
    std::vector<std::uint64_t> sorted(numbers.size());
    for (int shift = 32; shift < 62; shift += bits)
    {
        const auto digit = [shift](std::uint64_t number) { return number >> shift & ((1 << bits) - 1); };
        std::array<std::size_t, 1 << bits> places{};
        for (const std::uint64_t number : numbers)
            ++places[digit(number)];
        std::size_t place = 0;
        for (std::size_t& count : places)
            count = std::exchange(place, place + count);
        for (const std::uint64_t number : numbers)
            sorted[places[digit(number)]++] = number;
        numbers.swap(sorted);
    }
}
}

int dg_feature_points(const dgGeometry& geometry, int feature, int (&points)[3])
{
    switch (geometry.topology)
    {
    case dgTOPOLOGY_TRIANGLES:
        for (int i = 0; i < 3; ++i)
        {
            const int node = geometry.triangles[feature][i];
            points[i] = node >= 0 && node < geometry.npoints ? node : 0;
        }
        return geometry.npoints ? 3 : 0;
    case dgTOPOLOGY_LINES: points[1] = feature + 1; [[fallthrough]];
    case dgTOPOLOGY_POINTS:
    case dgTOPOLOGY_TEXT: points[0] = feature; break;
    }
    return geometry.topology == dgTOPOLOGY_LINES ? 2 : 1;
}

dgFeatureTree::dgFeatureTree(const dgGeometry& geometry)
{
    const auto count = static_cast<std::size_t>(geometry.nfeatures);
    giBox3 all;
    for (int i = 0; i < geometry.npoints; ++i)
        all.merge(geometry.points[i]);
    const dgMortonCode code(all);
    std::vector<std::uint64_t> order(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        int points[3] = {};
        dg_feature_points(geometry, static_cast<int>(i), points);
        // The coarser half of the code is fine enough, for the first point as well as for the middle.
        const std::uint64_t place = geometry.npoints ? code(geometry.points[points[0]]) >> 18 : 0;
        order[i] = place << 32 | i;
    }
    sort_by_high_bits(order);
    the_features.resize(count);
    std::vector<giBox3> boxes((count + group_features - 1) / group_features);
    for (std::size_t i = 0; i < count; ++i)
    {
        the_features[i] = static_cast<unsigned>(order[i]);
        boxes[i / group_features].merge(box_of(geometry, static_cast<int>(the_features[i])));
    }
    the_tree = dgBoxTree(std::move(boxes), true);
}

std::span<const unsigned> dgFeatureTree::features(int group) const
{
    const auto rest = std::span(the_features).subspan(group_features * static_cast<std::size_t>(group));
    return rest.first(std::min(group_features, rest.size()));
}
