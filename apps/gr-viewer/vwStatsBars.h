#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"

class dgRenderer;
class dgView;
class vwFrameTimes;

/// Draws the last frame times as bars over the lower left corner of a view: green up to 1/60 s, yellow up to 1/30 s,
/// red beyond; lines stand at both. A bar of full height took 1/15 s or more.
class vwStatsBars
{
public:
    vwStatsBars() : the_structure(new dgClientStructure()) {}

    /// To be called where the library's overlay callback is.
    void draw(dgView& view, const vwFrameTimes& times);

private:
    void build(const vwFrameTimes& times, int most_bars);

    dgRef<dgClientStructure> the_structure;
};
