#pragma once

#include "giPoint2.h"
#include "giPoint3.h"
#include "giTriBlock.h"
#include "giVector3.h"

#include <limits>

/// The value of a new node on an edge between values a (t = 0) and b (t = 1): a itself where both are within 1e-5 of
/// each other, so that equal ends give exactly their value.
inline giVector3 gr_interpolated(const giVector3& a, const giVector3& b, double t)
{
    return (a - b).length() <= 1e-5 ? a : a * (1 - t) + b * t;
}

inline giPoint2 gr_interpolated(const giPoint2& a, const giPoint2& b, double t)
{
    return a.coincident(b, 1e-5) ? a : giPoint2::interpolate(a, b, t);
}

/// The same for each of both curvatures. The largest double marks a missing pair: what lies beside one misses too.
inline giTriBlock::curvature_pair gr_interpolated(const giTriBlock::curvature_pair& a,
                                                  const giTriBlock::curvature_pair& b, double t)
{
    if (a == b)
        return a;
    constexpr double missing = std::numeric_limits<double>::max();
    if (a[0] == missing || b[0] == missing)
        return {missing, 0};
    return {a[0] * (1 - t) + b[0] * t, a[1] * (1 - t) + b[1] * t};
}
