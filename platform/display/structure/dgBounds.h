#pragma once

#include "dgGeometry.h"
#include "giBox3.h"

/// A run of primitives that is drawn as a whole or not at all, where that is all there is of something.
struct dgSoleRun
{
    int features = -1; ///< triangles, segments or points of the run; -1 where there is something else
    dgTopology topology = dgTOPOLOGY_POINTS;

    bool operator==(const dgSoleRun&) const = default;
};

/// Where something of a network is drawn, as far as that is known before it is drawn.
struct dgBounds
{
    giBox3 box;         ///< around all primitives, in the coordinates of the place; may be larger than need be
    double reach = 0;   ///< pixels that lines and markers may reach beyond it by attributes set inside
    bool exact = true;  ///< the box is no larger than need be
    bool open = false;  ///< more may be drawn, anywhere
    bool vague = false; ///< primitives may lie outside the box; what is vague is open, too
    bool world = false; ///< the box is right only where the place's coordinates are those of the world
    dgSoleRun sole;     ///< what there is of it, if that is one small run
};
