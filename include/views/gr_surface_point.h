#pragma once

#include "grExport.h"

class dgView;
class giPoint2;
class giPoint3;

/// Finds the point in world space of the surface that is seen at a position in device pixels: the nearest one of all
/// triangles that the view shows between its clipping planes. What looks hide and what a section cuts away is not seen,
/// nor are surfaces where the renderer's settings let none be picked. 0 when there is none; point is then left alone.
GR_EXPORT int gr_surface_point(const dgView& view, const giPoint2& position, giPoint3& point);
