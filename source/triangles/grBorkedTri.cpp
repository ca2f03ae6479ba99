#include "grBorkedTri.h"

#include <ostream>

void grBorkedTri::print(std::ostream& os) const
{
    os << "grBorkedTri {\n  tri_index is " << the_tri_index << "\n  orig_index is " << the_orig_index
       << "\n  borked_index is " << the_borked_index << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grBorkedTri& tri)
{
    tri.print(os);
    return os;
}
