#include "gsStructureSkipper.h"

#include "dgPrimitiveRun.h"
#include "dgRenderer.h"

#include <algorithm>
#include <cmath>

namespace
{
// Of so many runs that would be left out a part is drawn: then nothing disappears that is alone or among a few, and
// where one of hundreds does, the time of a frame is better spent on whole ones. Parts may draw this much more than the
// share: a fraction of it, or a few primitives.
constexpr int most_parts = 256;
constexpr long long fraction_to_spare = 32, few_to_spare = 16;
}

gsStructureSkipper::gsStructureSkipper(long long total, double ratio)
    : the_wanted(std::llround(static_cast<double>(std::max(total, 0ll)) * std::clamp(ratio, 0.0, 1.0))),
      the_ratio(std::clamp(ratio, 0.0, 1.0))
{}

void gsStructureSkipper::start_network(dgRenderer&, const dgStructure*)
{
    the_carry = 0;
    the_small_carry = 0;
    the_parts = 0;
    the_drawn = 0;
    the_simplified = 0;
    the_spare = static_cast<double>(std::max(the_wanted / fraction_to_spare, few_to_spare));
}

void gsStructureSkipper::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const int features = run.features();
    if (the_ratio >= 1)
    {
        the_drawn += features;
        renderer.draw_run(run);
        return;
    }
    if (!features || the_ratio <= 0)
        return;
    if (run.small_features() >= 0 || run.sampling().indivisible())
    {
        const int count = take(features);
        if (count == features)
            renderer.draw_run(run);
        else if (count)
            draw_first(renderer, run, count);
        return;
    }
    const double share = features * the_ratio + the_carry;
    const int count = std::clamp(static_cast<int>(std::lround(share)), 1, features);
    if (const int drawn = renderer.draw_simplified(run, count))
    {
        the_carry = share - drawn;
        the_drawn += drawn;
        the_simplified = 1;
        return;
    }
    the_carry = share - count;
    the_drawn += count;
    draw_first(renderer, run, count);
}

int gsStructureSkipper::passes_by(dgTopology, int features, int runs)
{
    if (the_ratio >= 1)
        return 0;
    if (!features || the_ratio <= 0)
        return runs;
    // Added up as run does it, so that the rounding is the same.
    const double share = features * the_ratio;
    const bool parts = the_parts < most_parts;
    double carry = the_small_carry;
    int passed = 0;
    for (; passed < runs; ++passed)
    {
        const double due = carry + share;
        if (2 * due >= features || (parts && part_of(features, due)))
            break;
        carry = due;
    }
    the_small_carry = carry;
    return passed;
}

// What is not seen counts as if it were, so that the share does not depend on the view.
int gsStructureSkipper::passes_by_unseen(dgTopology, int features, int runs)
{
    if (the_ratio >= 1)
        the_drawn += static_cast<long long>(features) * runs;
    else if (features && the_ratio > 0)
        for (int i = 0; i < runs; ++i)
            take(features);
    return runs;
}

// How much is drawn of a run that is left out, where so much is due of it and those before it; 0 for nothing.
int gsStructureSkipper::part_of(int features, double due)
{
    if (the_parts == most_parts)
        return 0;
    if (features != the_part_of)
    {
        the_part_of = features;
        the_part = std::clamp(static_cast<int>(std::lround(features * the_ratio)), 1, features);
    }
    return std::max(the_part - due, 0.0) > the_spare ? 0 : the_part;
}

// How much is drawn of a small run, which counts as drawn.
int gsStructureSkipper::take(int features)
{
    the_small_carry += features * the_ratio;
    int count = features;
    if (2 * the_small_carry >= features)
        the_small_carry -= features;
    else if ((count = part_of(features, the_small_carry)))
    {
        ++the_parts;
        the_spare -= std::max(count - the_small_carry, 0.0);
        the_small_carry = std::max(the_small_carry - count, 0.0);
    }
    the_drawn += count;
    return count;
}

// Draws so many features from the start of the sampling order.
void gsStructureSkipper::draw_first(dgRenderer& renderer, const dgPrimitiveRun& run, int count)
{
    the_spans.clear();
    run.sampling().sample(0, count, the_spans);
    renderer.draw_features(run, the_spans);
}
