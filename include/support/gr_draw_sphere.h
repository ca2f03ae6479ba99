#pragma once

#include "grExport.h"

class dgStructure;
class giPoint3;
class gsColour;

/// Appends a wire sphere to a structure: four meridians in the first colour, the equator and the two parallels at 45
/// degrees in the second, about the z axis. Every line is closed and has that many segments, at least 3; the radius is
/// in the units of the structure. Line colours are set in the structure and stay set behind the sphere.
GR_EXPORT void gr_draw_sphere(dgStructure& structure, const giPoint3& centre, double radius, int segments,
                              const gsColour& first, const gsColour& second);
