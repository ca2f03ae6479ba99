#pragma once

#include "dgRunSampling.h"
#include "gsRenderAction.h"

#include <vector>

/// Draws a network slice by slice, each a run of the drawing order. All slices together draw every primitive once.
/// Primitives are counted as triangles, line segments and points. A slice starts where the one before has ended, unless
/// the network has changed meanwhile; so all of them together cost one walk through it.
class DG_EXPORT gsStructureSlicer : public gsRenderAction
{
public:
    /// Primitives in a slice, at least 1.
    explicit gsStructureSlicer(long long per_slice);

    /// Changes that from the next slice on.
    long long per_slice() const { return the_per_slice; }
    void per_slice(long long primitives) { the_per_slice = primitives; }

    /// 1 until the last primitive was drawn.
    int another_slice_needed() const { return the_total < 0 || the_end < the_total; }

    /// Moves on; the next drawings are of this slice.
    void next_slice();

    void start_network(dgRenderer& renderer, const dgStructure* structure) override;
    void end_network(dgRenderer& renderer) override;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override;
    int passes_by(dgTopology topology, int features, int runs) override;
    int passes_by_unseen(dgTopology topology, int features, int runs) override;
    const dgNetworkPlace* starts_at() const override { return the_start.run.empty() ? nullptr : &the_start.run; }
    int stops_at(const dgNetworkPlace& place) override;
    int element(dgRenderer& renderer, const dgGraphicalElement& element) override;

private:
    // A run of which the slice that begins here draws something, and the primitives before it.
    struct Place
    {
        dgNetworkPlace run; // empty for the beginning of the network
        long long met = 0;
    };

    long long the_per_slice;
    long long the_begin = 0; // of the slice, in primitives from the start of the network
    long long the_end = 0;
    long long the_total = -1;    // -1 until a drawing has reached the end
    long long the_met = 0;       // in this drawing and before it
    long long the_run_start = 0; // of them, before the run met last
    unsigned long long the_network_stamp = 0;
    Place the_start, the_stop; // of the present slice
    std::vector<dgFeatureSpan> the_spans;
};
