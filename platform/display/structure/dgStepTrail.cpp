#include "dgStepTrail.h"

#include "apPrefetch.h"
#include "dgPrimitiveRun.h"
#include "dgRunCache.h"
#include "dgStepTree.h"
#include "dgTransform.h"
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
    Stop stop = the_stops.empty() ? Stop() : the_stops.back();
    the_attributes.resize(static_cast<std::size_t>(stop.end_attribute));
    the_placements.resize(static_cast<std::size_t>(stop.end_placement));
    stop = {.from = from,
            .leaf = leaf,
            .number = tree.step(leaf),
            .first_attribute = stop.end_attribute,
            .first_placement = stop.end_placement,
            .step = tree.item(leaf)};
    // Of the transforms on the way a world transform comes first, and other attributes do not depend on them.
    tree.attributes_from_to(from, leaf,
                            [this](const dgGraphicalElement& attribute)
                            {
                                if (attribute.type() == dgTYPE_WORLD_TRANSFORM)
                                    the_placements.push_back(
                                        static_cast<const dgWorldTransform&>(attribute).transform());
                                else
                                    the_attributes.push_back(&attribute);
                            });
    stop.end_attribute = static_cast<int>(the_attributes.size());
    stop.end_placement = static_cast<int>(the_placements.size());
    the_stops.push_back(stop);
}

// Of the stop after the next what is known of it here, and of the next what its run, which has come by then, knows.
void dgStepTrail::fetch_ahead(std::size_t number) const
{
    constexpr std::size_t kept_by_drivers = 64; // bytes, about
    const std::size_t next = number + 1;
    if (next + 1 >= the_stops.size())
        return;
    if (const dgPrimitiveRun* run = the_stops[next].step.run)
        ap_prefetch(run->cache.get(), kept_by_drivers);
    const Stop& ahead = the_stops[next + 1];
    if (ahead.step.run)
        ap_prefetch(ahead.step.run, sizeof(dgPrimitiveRun));
    for (int i = ahead.first_attribute; i < ahead.end_attribute; ++i)
        ap_prefetch(&attribute(i), sizeof(dgTransform));
}
