#include "gsStructureSlicer.h"

#include "dgPrimitiveRun.h"
#include "dgRenderer.h"
#include "dgStructure.h"

#include <algorithm>
#include <utility>

gsStructureSlicer::gsStructureSlicer(long long per_slice) : the_per_slice(std::max(per_slice, 1ll)) {}

void gsStructureSlicer::next_slice()
{
    the_begin = the_end;
    the_end += the_per_slice;
    the_start = std::exchange(the_stop, Place());
}

void gsStructureSlicer::start_network(dgRenderer&, const dgStructure* structure)
{
    const unsigned long long stamp = structure->network_stamp();
    if (std::exchange(the_network_stamp, stamp) != stamp)
        the_start = Place();
    the_stop = Place();
    the_met = the_start.met;
}

void gsStructureSlicer::end_network(dgRenderer&)
{
    if (the_stop.run.empty())
        the_total = the_met;
}

int gsStructureSlicer::stops_at(const dgNetworkPlace& place)
{
    if (the_end == 0 || the_met <= the_end)
        return 0;
    the_stop = {place, the_run_start};
    return 1;
}

void gsStructureSlicer::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const long long start = the_run_start = the_met;
    const int features = run.features();
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

int gsStructureSlicer::passes_by(dgTopology, int features, int runs)
{
    if (the_met > the_begin)
        return 0;
    const long long passed = features ? std::min<long long>(runs, (the_begin - the_met) / features) : runs;
    the_met += passed * features;
    return static_cast<int>(passed);
}

int gsStructureSlicer::passes_by_unseen(dgTopology, int features, int runs)
{
    the_met += static_cast<long long>(features) * runs;
    return runs;
}

int gsStructureSlicer::element(dgRenderer&, const dgGraphicalElement&)
{
    // What draws by itself cannot be cut: it belongs to the slice that passes it.
    return the_met >= the_begin;
}
