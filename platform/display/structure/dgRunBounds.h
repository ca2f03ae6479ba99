#pragma once

#include "dgBoxTree.h"
#include "dgExport.h"

#include <vector>

struct dgPrimitiveRun;
struct dgFeatureSpan;

/// Where the primitives of a run lie, in their own coordinates. Small ones that follow on each other share a box.
class DG_EXPORT dgRunBounds
{
public:
    explicit dgRunBounds(const dgPrimitiveRun& run);

    const giBox3& box() const { return the_tree.box(); }

    /// Successive primitives that share a box.
    int groups() const { return the_tree.count(); }
    int first_primitive(int group) const { return the_starts[static_cast<std::size_t>(group)].primitive; }
    int end_primitive(int group) const { return the_starts[static_cast<std::size_t>(group) + 1].primitive; }
    int first_feature(int group) const { return the_starts[static_cast<std::size_t>(group)].feature; }
    int end_feature(int group) const { return the_starts[static_cast<std::size_t>(group) + 1].feature; }

    /// The boxes of the groups.
    const dgBoxTree& tree() const { return the_tree; }

    /// A primitive has changed. False when its number of features has: then this must be made again.
    bool primitive_changed(const dgPrimitiveRun& run, int primitive);

private:
    struct Start
    {
        int primitive, feature;
    };
    giBox3 box_of(const dgPrimitiveRun& run, int group) const;

    std::vector<Start> the_starts; // of the groups, and the ends of the last one
    dgBoxTree the_tree;
};
