#include "grSpanEdge.h"

#include <ostream>

void grSpanEdge::print(std::ostream& os) const
{
    os << "grSpanEdge {\n  left is " << the_left << "\n  right is " << the_right << "\n  new_left is " << the_new_left
       << "\n  new_right is " << the_new_right << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grSpanEdge& edge)
{
    edge.print(os);
    return os;
}
