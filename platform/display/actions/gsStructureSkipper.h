#pragma once

#include "dgRunSampling.h"
#include "gsRenderAction.h"

#include <vector>

/// Draws a share of a network, spread evenly over all of its primitives and over the inside of large ones. The share is
/// the same primitives on every drawing. Something is drawn of every run, however small the share, unless it is one of
/// hundreds of small ones that are left out; so a part that is alone never disappears. Of blocks that the driver has
/// simplified, the whole is drawn with as many triangles as the share has. Primitives are counted as triangles, line
/// segments and points.
class DG_EXPORT gsStructureSkipper : public gsRenderAction
{
public:
    /// total is what the network has in all; ratio is the share to draw: 0 draws none, 1 all.
    gsStructureSkipper(long long total, double ratio);

    /// What the last drawing drew, and whether simplified blocks were among it.
    long long prims_drawn() const { return the_drawn; }
    int simplified() const { return the_simplified; }

    void start_network(dgRenderer& renderer, const dgStructure* structure) override;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override;
    int passes_by(dgTopology topology, int features, int runs) override;
    int passes_by_unseen(dgTopology topology, int features, int runs) override;

private:
    int part_of(int features, double due);
    int take(int features);
    void draw_first(dgRenderer& renderer, const dgPrimitiveRun& run, int count);

    long long the_wanted;
    double the_ratio;
    double the_carry = 0;              // what rounding has left over from the runs before
    double the_small_carry = 0;        // the same for runs that are drawn whole or not at all
    int the_part_of = 0, the_part = 0; // of the run asked about last
    int the_parts = 0;                 // such runs of which a part was drawn
    double the_spare = 0;              // what parts may draw beyond the share
    long long the_drawn = 0;
    int the_simplified = 0;
    std::vector<dgFeatureSpan> the_spans;
};
