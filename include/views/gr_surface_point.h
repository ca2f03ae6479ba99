#pragma once

#include "grExport.h"

class dgView;
class giPoint2;
class giPoint3;

/// Finds the point in world space of the surface that is seen at a position in device pixels: the nearest one of all
/// triangles of the view's network between its clipping planes. 0 when there is none; point is then left alone.
GR_EXPORT int gr_surface_point(const dgView& view, const giPoint2& position, giPoint3& point);
