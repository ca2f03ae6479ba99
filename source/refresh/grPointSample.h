#pragma once

#include "giPoint3.h"

#include <vector>

class dgStructure;
class dgView;

/// Points of a network's primitives, spread evenly over its triangles, segments and points: how much of it a camera
/// shows is told by how many of them it shows, in a time that does not depend on the network.
class grPointSample
{
public:
    /// Of the network as it is now, which is walked once.
    explicit grPointSample(const dgStructure& root);

    /// The share of the network that the camera of a view shows, above 0; 1 where there are no points.
    double share_shown(const dgView& view) const;

private:
    void thin();

    std::vector<giPoint3> the_points; // in world space
    long long the_step = 1;           // features from one to the next
};
