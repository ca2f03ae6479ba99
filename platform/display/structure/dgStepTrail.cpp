#include "dgStepTrail.h"

#include "apPrefetch.h"
#include "dgPrimitiveRun.h"
#include "dgRunCache.h"
#include "dgStepTree.h"
#include "dgWorldTransform.h"

#include <algorithm>

const dgStepTrail::Stop& dgStepTrail::stop(const dgStepTree& tree, int k, int from, int leaf)
{
    // There may be fewer where what was drawn has drawn the structure by another walk.
    const std::size_t number = std::min(static_cast<std::size_t>(k), the_stops.size());
    if (number == the_stops.size() || the_stops[number].from != from || the_stops[number].leaf != leaf)
        note(number, tree, from, leaf);
    fetch_ahead(number);
    return the_stops[number];
}

// In place of the stop of a number and all behind it.
void dgStepTrail::note(std::size_t number, const dgStepTree& tree, int from, int leaf)
{
    the_stops.resize(number);
    const int first = the_stops.empty() ? 0 : the_stops.back().end_attribute;
    the_attributes.resize(static_cast<std::size_t>(first));
    tree.attributes_from_to(from, leaf,
                            [this](const dgGraphicalElement& attribute) { the_attributes.push_back(&attribute); });
    the_stops.push_back({from, leaf, tree.step(leaf), first, static_cast<int>(the_attributes.size()), tree.run(leaf)});
}

// Of the stop after the next what is known of it here, and of the next what its run, which has come by then, knows.
void dgStepTrail::fetch_ahead(std::size_t number) const
{
    constexpr std::size_t kept_by_drivers = 128; // bytes, about
    const std::size_t next = number + 1;
    if (next + 1 >= the_stops.size())
        return;
    if (const dgPrimitiveRun* run = the_stops[next].run)
        ap_prefetch(run->cache.get(), kept_by_drivers);
    const Stop& ahead = the_stops[next + 1];
    if (ahead.run)
        ap_prefetch(ahead.run, sizeof(dgPrimitiveRun));
    for (int i = ahead.first_attribute; i < ahead.end_attribute; ++i)
        ap_prefetch(&attribute(i), sizeof(dgWorldTransform));
}
