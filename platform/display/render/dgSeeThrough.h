#pragma once

#include "dgDrawState.h"
#include "dgGraphicalPrimitive.h"
#include "dgRef.h"
#include "dgRunSampling.h"
#include "giXform3.h"

#include <vector>

class dgCamera;
class dgDriver;
struct dgPrimitiveRun;

/// What is see-through in a picture and waits until all that is solid was drawn: then the farthest primitive is drawn
/// first, by the middles of their boxes. Where primitives lie through each other this order is wrong for some pixels.
class dgSeeThrough
{
public:
    bool empty() const { return the_entries.empty(); }

    /// The state and the transform to world space of what is added next.
    void place(const dgDrawState& state, const giXform3& transform, const dgCamera& camera);
    void add(const dgGraphicalPrimitive& primitive);
    void add(const dgPrimitiveRun& run);
    void add(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans);

    /// Draws everything and forgets it.
    void draw(dgDriver& driver);

private:
    struct Placement
    {
        dgDrawState state;
        giXform3 transform, to_view;
    };
    struct Entry
    {
        double depth; // view z of the middle
        std::size_t placement;
        dgRef<dgGraphicalPrimitive> primitive; // null for a run
        const dgPrimitiveRun* run;
        std::vector<dgFeatureSpan> spans; // empty: all
    };
    void add(const giBox3& box, Entry entry);
    void drop_lost_runs();

    std::vector<Placement> the_placements;
    std::vector<Entry> the_entries;
    unsigned long long the_runs_gone = 0; // when the first entry came
};
