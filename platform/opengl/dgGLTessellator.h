#pragma once

#include "giPoint2.h"
#include "giTriangle.h"

#include <vector>

/// Triangles that cover an area without covering any part of it twice.
struct dgGLTriangles
{
    std::vector<giPoint2> points;
    std::vector<giTriangle> triangles; ///< counter-clockwise
};

/// Covers what the contours wind about with triangles; contours may cross each other and themselves. Answers 0, with
/// what was found until then, where that fails.
int dg_gl_tessellate(const std::vector<std::vector<giPoint2>>& contours, dgGLTriangles& triangles);
