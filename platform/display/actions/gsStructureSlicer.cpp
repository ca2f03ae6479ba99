#include "gsStructureSlicer.h"

#include "dgPrimitiveRun.h"
#include "dgRenderer.h"

#include <algorithm>

gsStructureSlicer::gsStructureSlicer(int per_slice) : the_per_slice(std::max(per_slice, 1)) {}

void gsStructureSlicer::next_slice()
{
    the_begin = the_end;
    the_end += the_per_slice;
}

void gsStructureSlicer::start_network(dgRenderer&, const dgStructure*)
{
    the_met = 0;
}

void gsStructureSlicer::end_network(dgRenderer&)
{
    the_total = the_met;
}

void gsStructureSlicer::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const long long start = the_met;
    const int features = run.sampling().features();
    the_met += features;
    const long long low = std::max(the_begin, start), high = std::min(the_end, the_met);
    if (high <= low)
        return;
    if (high - low == features)
    {
        renderer.draw_run(run);
        return;
    }
    the_spans.assign(1, {static_cast<int>(low - start), static_cast<int>(high - low)});
    renderer.draw_features(run, the_spans);
}

int gsStructureSlicer::element(dgRenderer&, const dgGraphicalElement&)
{
    // What draws by itself cannot be cut: it belongs to the first slice.
    return the_begin == 0;
}
