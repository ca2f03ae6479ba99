#pragma once

#include "giBox3.h"

#include <vector>

class dgStructure;
class dgView;

/// Where some of a network's triangles, segments and points lie that are spread evenly over it: how much of the network
/// takes time to draw where a camera shows a part of it is told by how much of these does, in a time that does not
/// depend on the network.
class grNetworkSample
{
public:
    /// What is drawn of an element that is partly in view.
    enum Culling
    {
        BY_FEATURE, ///< what is in view
        BY_ELEMENT  ///< all of it, and elements other than triangle blocks wherever they lie
    };

    /// Of the network as it is now, which is walked once.
    grNetworkSample(const dgStructure& root, Culling culling);

    /// The share of the network that is drawn where all of it that the camera of a view shows is drawn, above 0; 1
    /// where the network has nothing.
    double share_shown(const dgView& view) const;

private:
    void thin();

    std::vector<giBox3> the_boxes; // in world space; empty for what is drawn wherever it lies
    long long the_step = 1;        // features from one to the next
};
