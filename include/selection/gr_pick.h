#pragma once

#include "dgPickHit.h"
#include "grExport.h"

#include <vector>

class dgView;
class giBox2;
class giPoint2;

/// Which of the things that lie behind each other are picked.
enum grPickDepth
{
    grPICK_FRONT = 0, ///< what is seen
    grPICK_ALL = 1    ///< everything, the nearest first
};

/// What one hit is.
enum grPickUnit
{
    grPICK_PARTS = 0,   ///< a primitive at one of its places
    grPICK_FEATURES = 1 ///< a triangle, segment, point or text of it
};

/// Picks at a position in device pixels: surfaces that lie under it, and lines, points and texts that pass within reach
/// pixels, which win over surfaces that they lie on. Empty when there is nothing; one hit at most for grPICK_FRONT.
GR_EXPORT std::vector<dgPickHit> gr_pick(const dgView& view, const giPoint2& position, grPickDepth depth = grPICK_FRONT,
                                         grPickUnit unit = grPICK_PARTS, double reach = 3);

/// Picks what shows something in a device box, the corners in any order, or lies there behind other things. Of parts,
/// grPICK_FRONT gives those with a pixel to be seen: they are drawn into the back buffer of the view's renderer, or
/// where it has none into its picture, so that the view is to be drawn anew. Of features, it gives those of such parts.
GR_EXPORT std::vector<dgPickHit> gr_pick_box(dgView& view, const giBox2& device_box, grPickDepth depth = grPICK_FRONT,
                                             grPickUnit unit = grPICK_PARTS);
