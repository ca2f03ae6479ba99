#pragma once

#include "giAngle.h"
#include "giPoint2.h"
#include "giVector3.h"
#include "grExport.h"

/// Maps steps of the pointer to rotations, as if it rolled a ball under the screen.
///
/// Points are in trackball coordinates: the origin is the middle of the ball and a view spans one unit each way. The
/// surface is a sphere around the middle that passes smoothly into a hyperbolic sheet at radius / sqrt 2, so that
/// points beside the ball still turn it gently (Bell's variant of Chen, Mountford and Sellen's virtual sphere).
class GR_EXPORT grTrackball
{
public:
    /// radius is in trackball coordinates and greater than 0.
    explicit grTrackball(double radius) : the_radius(radius) {}

    double radius() const { return the_radius; }

    /// The rotation that takes the surface above p1 to that above p2. The axis is a unit vector in view space: x right,
    /// y up, z towards the eye. For a step on the surface shorter than 1e-5 the angle is 0 and axis is left as it was.
    void incremental_rotation(const giPoint2& p1, const giPoint2& p2, giVector3& axis, giAngle& angle) const;

private:
    double project_to_ball(const giPoint2& p) const;

    double the_radius;
};
