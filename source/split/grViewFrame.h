#pragma once

class giBox3;
class giPoint3;
class giVector3;
class giXform3;

/// Sets xform to the turn that brings a direction to z and a point to the origin. The direction z turns nothing.
/// Returns 0 for a direction of no or no finite length.
int gr_view_frame(const giVector3& direction, const giPoint3& middle, giXform3& xform);

/// 1 when the box is not empty and all its coordinates are finite.
int gr_is_finite(const giBox3& box);
