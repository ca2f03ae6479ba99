#pragma once

#include "giTriBlock.h"

#include <vector>

class spOutline;
class spProfile;

/// Adds surfaces of the sample part to a triangle block, or only counts their triangles.
class spSurface
{
public:
    /// A closed curve that bounds a plane face: an outline moved outwards by an offset.
    struct loop
    {
        const spOutline& outline;
        double offset;
    };

    /// block null: only counts.
    explicit spSurface(giTriBlock* block) : the_block(block) {}

    /// The profile carried along the outline.
    void sweep(const spOutline& outline, const spProfile& profile);
    /// The plane face at height z inside the first loop and outside the others, facing up or down.
    void face(double z, bool up, const std::vector<loop>& loops);

    int triangles() const { return the_count; }

private:
    int add_node(const giPoint3& p, const giVector3& normal, const giPoint2& texture);

    giTriBlock* the_block;
    int the_count = 0;
};
