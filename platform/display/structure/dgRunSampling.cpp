#include "dgRunSampling.h"

#include "dgGraphicalPrimitive.h"
#include "dgPrimitiveRun.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace
{
// Lines and points are cut finer than triangles: a gap among lines is seen sooner, and fewer of them are drawn at once.
constexpr int gathered_triangles = dgRunSampling::chunk_triangles / 2;
constexpr int gathered_others = 64;

// Multiples of the golden section, taken round, lie evenly on the circle however many are taken. In units of 2^-32 of a
// turn no two of them meet.
constexpr std::uint32_t golden_section = 2654435769u;

// In which order count things that lie in a row are taken, so that however many of them lie evenly spread: the k-th
// place is that of the k-th multiple among all of them.
void even_places(int count, std::vector<int>& places)
{
    places.resize(static_cast<std::size_t>(count));
    std::iota(places.begin(), places.end(), 0);
    std::sort(places.begin(), places.end(),
              [](int a, int b)
              { return static_cast<unsigned>(a) * golden_section < static_cast<unsigned>(b) * golden_section; });
}
}

double dg_even_sequence(unsigned k)
{
    // Started in the middle.
    return (static_cast<std::uint32_t>(k * golden_section + 0x80000000u)) / 4294967296.0;
}

dgRunSampling::dgRunSampling(const dgPrimitiveRun& run) : the_run_stamp(run.stamp)
{
    const int triangles = run.topology == dgTOPOLOGY_TRIANGLES;
    const int unit_size = triangles ? chunk_triangles : gathered_others;
    const int gathered_size = triangles ? gathered_triangles : gathered_others;
    std::vector<double> values; // one a unit, which come in the order of these
    const auto add = [&](int count, double value)
    {
        the_units.push_back({count, 0});
        values.push_back(value);
        the_features += count;
    };
    unsigned n_gathered = 0, n_blocks = 0;
    int gathered = 0;
    std::vector<int> places;
    const auto close = [&]
    {
        if (gathered)
            add(gathered, dg_even_sequence(n_gathered++));
        gathered = 0;
    };
    for (const dgGraphicalPrimitive* primitive : run.primitives)
    {
        const int n = primitive->geometry().nfeatures;
        if (n <= unit_size)
        {
            gathered += n;
            if (gathered >= gathered_size)
                close();
            continue;
        }
        close();
        const int n_units = (n + unit_size - 1) / unit_size;
        const double offset = dg_even_sequence(n_blocks++);
        const int n_large = triangles ? (primitive->large_triangle_count() + unit_size - 1) / unit_size : 0;
        if (triangles)
            even_places(n_units - n_large, places);
        const auto value = [&](int unit)
        {
            if (!triangles)
                return dg_even_sequence(static_cast<unsigned>(unit));
            const int place = unit < n_large ? unit : n_large + places[static_cast<std::size_t>(unit - n_large)];
            return (place + offset) / n_units;
        };
        for (int i = 0; i < n_units; ++i)
            add(std::min(unit_size, n - i * unit_size), value(i));
    }
    close();

    std::vector<unsigned> order(the_units.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(), [&](unsigned a, unsigned b) { return values[a] < values[b]; });
    int place = 0;
    for (const unsigned unit : order)
    {
        the_units[unit].place = place;
        place += the_units[unit].count;
    }
}

int dgRunSampling::features_if_indivisible(const dgPrimitiveRun& run)
{
    const int triangles = run.topology == dgTOPOLOGY_TRIANGLES;
    const int most = run.primitives.size() == 1 && triangles ? chunk_triangles
                     : triangles                             ? gathered_triangles
                                                             : gathered_others;
    int features = 0;
    for (const dgGraphicalPrimitive* primitive : run.primitives)
        if ((features += primitive->geometry().nfeatures) > most)
            return -1;
    return features;
}

void dgRunSampling::sample(int first, int end, std::vector<dgFeatureSpan>& spans) const
{
    const auto append = [&](int from, int count)
    {
        if (!spans.empty() && spans.back().first + spans.back().count == from)
            spans.back().count += count;
        else
            spans.push_back({from, count});
    };
    int feature = 0;
    for (const Unit& unit : the_units)
    {
        const int low = std::max(unit.place, first);
        const int high = std::min(unit.place + unit.count, end);
        if (high > low)
            append(feature + low - unit.place, high - low);
        feature += unit.count;
    }
}
