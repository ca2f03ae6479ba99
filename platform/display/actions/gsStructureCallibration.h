#pragma once

#include "dgRunSampling.h"
#include "gsRenderAction.h"

#include <vector>

/// Draws as much of a network as the time of one frame allows, and counts. Primitives are counted as triangles, line
/// segments and points. What drawing waits for first, as erasing, belongs to the frame, up to a half of its time.
///
/// What is drawn is a sample spread evenly over the network, as gsStructureSkipper draws it, that grows until the time
/// has passed, in the middle of a primitive if need be. Each reading of the clock comes after the drawing is finished.
class DG_EXPORT gsStructureCallibration : public gsRenderAction
{
public:
    /// Seconds to draw for; 0 and less is no limit.
    explicit gsStructureCallibration(double frame_time);

    /// Seconds that the drawing took.
    double elapsed_time() const { return the_elapsed; }

    /// What was drawn and what the network has, of one kind: 0 lines and points, 1 surfaces.
    long long prims_drawn(int kind) const { return the_drawn[kind]; }
    long long prims_total(int kind) const { return the_total[kind]; }

    void start_network(dgRenderer& renderer, const dgStructure* structure) override;
    void end_network(dgRenderer& renderer) override;
    int another_pass(dgRenderer& renderer) override;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override;
    int passes_by(dgTopology topology, int features, int runs) override;
    int element(dgRenderer& renderer, const dgGraphicalElement& element) override;

private:
    void count(dgTopology topology, int features, int runs);
    bool is_taken(int features) const;
    void draw(dgRenderer& renderer, const dgPrimitiveRun& run, int kind);
    void read_clock(dgRenderer& renderer);
    long long drawn() const { return the_drawn[0] + the_drawn[1]; }

    double the_frame_time;
    double the_start = 0;
    double the_elapsed = 0;       // when the clock was last read
    double the_waited = 0;        // of that, before the first primitive
    double the_in_frame_time = 0; // primitives that fit the time as far as is known; 0: nothing is
    long long the_drawn[2] = {};
    long long the_total[2] = {};

    // Each pass draws the part of the sampling order from one share to the next.
    double the_share_done = 0;
    double the_share_aim = 1;
    int the_first_pass = 1;
    int the_out_of_time = 0;

    long long the_piece = 0;     // primitives to draw before the clock is read again
    long long the_unread = 0;    // drawn since
    unsigned the_small_runs = 0; // met so far in this pass
    std::vector<dgFeatureSpan> the_spans;
    std::vector<dgFeatureSpan> the_piece_spans;
};
