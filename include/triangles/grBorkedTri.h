#pragma once

#include "grExport.h"

#include <iosfwd>

/// A note about one damaged ("borked") triangle of a mesh that is being repaired: three triangle numbers, -1 where
/// there is none. For lists that a caller keeps; the library takes and returns none.
class GR_EXPORT grBorkedTri
{
public:
    grBorkedTri() = default;
    grBorkedTri(int tri_index, int orig_index, int borked_index)
        : the_tri_index(tri_index), the_orig_index(orig_index), the_borked_index(borked_index)
    {}

    /// The triangle that takes the damaged one's place.
    int tri_index() const { return the_tri_index; }
    void tri_index(int index) { the_tri_index = index; }
    /// The triangle of the original mesh that it was made from.
    int orig_index() const { return the_orig_index; }
    void orig_index(int index) { the_orig_index = index; }
    /// The damaged triangle.
    int borked_index() const { return the_borked_index; }
    void borked_index(int index) { the_borked_index = index; }

    /// 1 when tri_index is negative.
    int invalid() const { return the_tri_index < 0; }
    void print(std::ostream& os) const;

private:
    int the_tri_index = -1;
    int the_orig_index = -1;
    int the_borked_index = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grBorkedTri& tri);
