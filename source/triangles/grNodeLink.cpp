#include "grNodeLink.h"

#include <ostream>

void grNodeLink::print(std::ostream& os) const
{
    os << "grNodeLink {\n  node_index 0 is " << the_nodes[0] << "\n  node_index 1 is " << the_nodes[1] << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grNodeLink& link)
{
    link.print(os);
    return os;
}
