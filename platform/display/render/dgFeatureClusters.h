#pragma once

#include "dgBoxTree.h"

#include <vector>

/// The features of a large primitive in the order in which a driver stores them, in clusters that follow on each other,
/// and where these lie in the primitive's coordinates.
struct dgFeatureClusters
{
    std::vector<int> starts; ///< first feature of each cluster, and the end of the last one
    dgBoxTree tree;
};
