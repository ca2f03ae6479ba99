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
constexpr int most_parts = 256, fraction_to_spare = 32, few_to_spare = 16;
}

gsStructureSkipper::gsStructureSkipper(int total, double ratio)
    : the_wanted(static_cast<int>(std::lround(std::max(total, 0) * std::clamp(ratio, 0.0, 1.0)))),
      the_ratio(std::clamp(ratio, 0.0, 1.0))
{}

void gsStructureSkipper::start_network(dgRenderer&, const dgStructure*)
{
    the_carry = 0;
    the_small_carry = 0;
    the_parts = 0;
    the_drawn = 0;
    the_simplified = 0;
    the_spare = std::max(the_wanted / fraction_to_spare, few_to_spare);
}

void gsStructureSkipper::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const dgRunSampling& sampling = run.sampling();
    const int features = sampling.features();
    if (the_ratio >= 1)
    {
        the_drawn += features;
        renderer.draw_run(run);
        return;
    }
    if (!features || the_ratio <= 0)
        return;
    if (sampling.indivisible())
    {
        the_small_carry += features * the_ratio;
        if (2 * the_small_carry >= features)
        {
            the_small_carry -= features;
            the_drawn += features;
            renderer.draw_run(run);
        }
        else
            draw_part(renderer, run);
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
    draw_first(renderer, run, count);
}

void gsStructureSkipper::draw_part(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const int features = run.sampling().features();
    const int count = std::clamp(static_cast<int>(std::lround(features * the_ratio)), 1, features);
    const double too_much = std::max(count - the_small_carry, 0.0);
    if (the_parts == most_parts || too_much > the_spare)
        return;
    ++the_parts;
    the_spare -= too_much;
    the_small_carry = std::max(the_small_carry - count, 0.0);
    draw_first(renderer, run, count);
}

// Draws so many features from the start of the sampling order.
void gsStructureSkipper::draw_first(dgRenderer& renderer, const dgPrimitiveRun& run, int count)
{
    the_drawn += count;
    the_spans.clear();
    run.sampling().sample(0, count, the_spans);
    renderer.draw_features(run, the_spans);
}
