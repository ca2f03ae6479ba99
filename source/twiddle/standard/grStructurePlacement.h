#pragma once

#include "dgRef.h"
#include "dgStructure.h"
#include "dgTransform.h"
#include "giPoint3.h"
#include "giXform3.h"

/// Where a structure stands in a network, and the transform by which it is moved there.
///
/// That transform is the structure's own first one, before anything that it draws or calls; a structure without one is
/// given one by the first move. Where several calls lead to the structure, the first one counts.
class grStructurePlacement
{
public:
    /// root may be null, and need not lead to structure: it then stands in world space itself.
    grStructurePlacement(dgStructure& structure, dgStructure* root);

    /// The middle of the structure's box in world space, as it was at first; the place of its origin for an empty one.
    const giPoint3& middle() const { return the_middle; }

    /// Places the structure anew: as it was at first, and then moved in world space.
    void move(const giXform3& motion_world);

private:
    dgRef<dgStructure> the_structure;
    dgRef<dgTransform> the_transform; // null until there is one
    giXform3 the_start;               // structure to its surroundings
    giXform3 the_surroundings;        // to world
    giXform3 the_world;               // back
    giPoint3 the_middle;
};
