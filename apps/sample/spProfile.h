#pragma once

#include "giPoint2.h"
#include "giVector2.h"

#include <vector>

/// The cross-section of a wall: a chain of lines and arcs in the plane of (offset from an outline, height).
///
/// One walks along it with the material on the left and the air on the right. Pieces meet at sharp edges or tangents;
/// each has its own normals.
class spProfile
{
public:
    /// Points of one line or arc, with the normal (pointing to the right) at each.
    struct piece
    {
        std::vector<giPoint2> points;
        std::vector<giVector2> normals;
    };

    /// Cut so that steps are about spacing long, and a quarter turn has at least 4.
    spProfile(const giPoint2& start, double spacing) : the_position(start), the_spacing(spacing) {}

    spProfile& line_to(double offset, double height);
    /// The shorter arc around the centre, which is equally far from both ends.
    spProfile& arc_to(double offset, double height, const giPoint2& centre);

    const std::vector<piece>& pieces() const { return the_pieces; }

private:
    std::vector<piece> the_pieces;
    giPoint2 the_position;
    double the_spacing;
};
