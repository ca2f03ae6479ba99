#pragma once

#include "dgElementPath.h"
#include "giPoint3.h"

/// One thing that was picked.
struct dgPickHit
{
    dgElementPath path;  ///< the calls that lead to the primitive, and the primitive itself
    int feature = 0;     ///< triangle, segment, point or text of the primitive, from 0: the nearest to the eye
    giPoint3 point;      ///< where it is hit, in world space: next to the middle of the aperture
    double distance = 0; ///< pixels in the picture from there to the middle of the aperture; 0 where it lies on it
    double depth = 0;    ///< view z of the point; the larger, the nearer to the eye

    const dgGraphicalElement& primitive() const { return *path.back(); }
};
