#pragma once

#include "giAngle.h"
#include "giPoint3.h"
#include "giVector3.h"
#include "grExport.h"
#include "grSavedCameraPosition.h"

class dgView;

/// The way of a camera from one saved position to another.
///
/// The orientation turns about one axis by the shorter way, the world point in the middle of the view window moves on a
/// straight line, and the size of the window grows or shrinks by equal factors in equal shares.
class GR_EXPORT grCameraInterpolation
{
public:
    grCameraInterpolation(const grSavedCameraPosition& from, const grSavedCameraPosition& to);

    const grSavedCameraPosition& destination() const { return the_to; }

    /// Puts the camera of a view at a share of the way, from 0 to 1, and tells those who watch it. At 1 the view is
    /// exactly at the destination, clipping planes and all.
    void apply(dgView& view, double share) const;

private:
    void move(dgView& view, double share) const;

    grSavedCameraPosition the_from;
    grSavedCameraPosition the_to;
    giVector3 the_axis; // unit vector in view space
    giAngle the_angle;  // 0 to pi
    giPoint3 the_from_middle;
    giPoint3 the_to_middle; // world points in the middle of the windows
};
