#include "grBorkedTri.h"
#include "grInterNode.h"
#include "grNodeLink.h"
#include "grSpanEdge.h"
#include "grZone.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grZone zone)
{
    switch (zone)
    {
    case grUNDETERMINED_ZONE: return os << "grUNDETERMINED_ZONE";
    case grON_ZONE: return os << "grON_ZONE";
    case grPOSITIVE_ZONE: return os << "grPOSITIVE_ZONE";
    case grNEGATIVE_ZONE: return os << "grNEGATIVE_ZONE";
    case grSPANNING_ZONE: return os << "grSPANNING_ZONE";
    }
    return os << "Unknown value for grZone";
}

void grInterNode::print(std::ostream& os) const
{
    os << "grInterNode {\n  t is " << the_t << "\n  index is " << the_index << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grInterNode& node)
{
    node.print(os);
    return os;
}

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

void grNodeLink::print(std::ostream& os) const
{
    os << "grNodeLink {\n  node_index 0 is " << the_nodes[0] << "\n  node_index 1 is " << the_nodes[1] << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grNodeLink& link)
{
    link.print(os);
    return os;
}
