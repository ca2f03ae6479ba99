#include "gsStructureSkipper.h"

#include "dgCompiledStructure.h"
#include "dgRenderer.h"

#include <algorithm>
#include <cmath>

gsStructureSkipper::gsStructureSkipper(int total, double ratio)
    : the_wanted(static_cast<int>(std::lround(std::max(total, 0) * std::clamp(ratio, 0.0, 1.0)))),
      the_ratio(std::clamp(ratio, 0.0, 1.0))
{}

void gsStructureSkipper::start_network(dgRenderer&, const dgStructure*)
{
    the_carry = 0;
    the_small_carry = 0;
}

void gsStructureSkipper::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    if (the_ratio >= 1)
    {
        renderer.draw_run(run);
        return;
    }
    const dgRunSampling& sampling = run.sampling();
    if (sampling.indivisible())
    {
        the_small_carry += sampling.features() * the_ratio;
        if (2 * the_small_carry < sampling.features() || !sampling.features())
            return;
        the_small_carry -= sampling.features();
        renderer.draw_run(run);
        return;
    }
    const double share = sampling.features() * the_ratio + the_carry;
    const int count = std::clamp(static_cast<int>(std::lround(share)), 0, sampling.features());
    the_carry = share - count;
    the_spans.clear();
    sampling.sample(0, count, the_spans);
    renderer.draw_features(run, the_spans);
}
