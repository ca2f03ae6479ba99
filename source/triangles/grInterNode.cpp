#include "grInterNode.h"

#include <ostream>

void grInterNode::print(std::ostream& os) const
{
    os << "grInterNode {\n  t is " << the_t << "\n  index is " << the_index << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grInterNode& node)
{
    node.print(os);
    return os;
}
