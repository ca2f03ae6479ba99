#pragma once

class giBox3;
class giPoint3;
class giVector3;
class giXform3;

/// Sets xform to the turn that brings a direction to z and a point to the origin. The direction z turns nothing.
/// Returns false for a direction of no or no finite length.
bool gr_view_frame(const giVector3& direction, const giPoint3& middle, giXform3& xform);

/// True when the box is not empty and all its coordinates are finite.
bool gr_is_finite(const giBox3& box);
