#pragma once

#include "giPoint2.h"

#include <vector>

/// The outline of one glyph: closed contours of straight lines, the last point joined to the first, around what is
/// filled where they wind about a point at least once in either direction. Units are ems, from the glyph's origin on
/// the baseline, x along it and y up.
struct dgGlyphOutline
{
    std::vector<std::vector<giPoint2>> contours;
};
