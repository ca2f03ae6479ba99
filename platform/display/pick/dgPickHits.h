#pragma once

#include "dgPickHit.h"

#include <vector>

/// What a picker collects hits in.
struct dgPickHits
{
    int features = 0; ///< 1: a hit for each feature, 0: one for each primitive, of its nearest feature
    std::vector<dgPickHit> found;
    std::vector<const dgGraphicalElement*> calls; ///< that lead to where the walk stands

    void add(const dgGraphicalElement& primitive, int feature, const giPoint3& point, double depth, double distance);
};
