#pragma once

#include "dgBoxTree.h"
#include "dgExport.h"

#include <span>
#include <vector>

struct dgGeometry;

/// Where the features of a large primitive lie: boxes around a few that are near each other.
///
/// Takes about 11 bytes a feature. Making it takes less than a redraw of the primitive.
class DG_EXPORT dgFeatureTree
{
public:
    explicit dgFeatureTree(const dgGeometry& geometry);

    /// Primitives of fewer features need none.
    static constexpr int least_features = 64;

    /// The boxes of the groups, in the primitive's coordinates.
    const dgBoxTree& tree() const { return the_tree; }

    /// The numbers of the features in a group.
    std::span<const unsigned> features(int group) const;

private:
    std::vector<unsigned> the_features; // those of the groups, one after the other
    dgBoxTree the_tree;
};

/// The points of a feature, 1 to 3 of them, as their numbers in the geometry; answers how many. A node of a triangle
/// that does not exist counts as the first one.
DG_EXPORT int dg_feature_points(const dgGeometry& geometry, int feature, int (&points)[3]);
