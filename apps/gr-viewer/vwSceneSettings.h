#pragma once

#include "vwBackground.h"
#include "vwRefresher.h"
#include "vwRubberBanding.h"
#include "vwSection.h"

/// How a scene is set up.
struct vwSceneSettings
{
    int views = 1;        ///< in a grid, the first one at the upper left
    double framerate = 0; ///< frames per second to hold while a view moves, 0: what the resources say
    int stats = 0;        ///< draw frame times as bars over the first view
    int cursor = 0;       ///< let a cross-hair follow the pointer
    vwRubberBanding rubber_banding = vwRUBBER_BAND_BY_RESOURCES;
    vwRefresher refresher = vwREFRESHER_FAST; ///< what redraws views that move
    int multi = 0;                            ///< every tool acts on all views alike
    int independent = 0;                      ///< views do not follow the first one; with multi they never do
    int perspective = 0;
    int paper = 0;        ///< in place of the grid a sheet, the first view, with three views on it
    int smooth_edges = 0; ///< idle calls smooth the edges of views at rest
    vwBackground background = vwBACKGROUND_DARK;
    int axes = 0; ///< axes in a corner of the first view, and a scale bar
    int edges = 0;
    vwSection section;
};
