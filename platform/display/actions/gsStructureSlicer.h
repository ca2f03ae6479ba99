#pragma once

#include "dgRunSampling.h"
#include "gsRenderAction.h"

#include <vector>

/// Draws a network slice by slice, each a run of the drawing order. All slices together draw every primitive once.
/// Primitives are counted as triangles, line segments and points.
class DG_EXPORT gsStructureSlicer : public gsRenderAction
{
public:
    /// Primitives in a slice, at least 1.
    explicit gsStructureSlicer(int per_slice);

    /// 1 until the last primitive was drawn.
    int another_slice_needed() const { return the_total < 0 || the_end < the_total; }

    /// Moves on; the next drawings are of this slice.
    void next_slice();

    void start_network(dgRenderer& renderer, const dgStructure* structure) override;
    void end_network(dgRenderer& renderer) override;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override;
    int element(dgRenderer& renderer, const dgGraphicalElement& element) override;

private:
    int the_per_slice;
    long long the_begin = 0; // of the slice, in primitives from the start of the network
    long long the_end = 0;
    long long the_total = -1; // -1 until a drawing has counted them
    long long the_met = 0;    // in this drawing
    std::vector<dgFeatureSpan> the_spans;
};
