#pragma once

#include "grFlatCut.h"
#include "grTriCut.h"

/// Cuts a triangle whose spanning edges get their new nodes from a table that its neighbours share, or where that has
/// none from new_node(edge), which must be valid.
template <class NewNode>
void gr_cut_triangle(const giTriangle& triangle, const gsTriEdgegrZonecoTable& edge_zones,
                     gsTriEdgegrInterNodecoTable& shared, std::vector<giTriangle>& positive,
                     std::vector<giTriangle>& negative, NewNode new_node)
{
    std::vector<gsTriEdge> spanning;
    grTriCut::get_edges(triangle, grSPANNING_ZONE, edge_zones, spanning);
    gsTriEdgegrInterNodecoTable local(4, 50);
    for (const gsTriEdge& edge : spanning)
    {
        const grInterNode* known = shared.find(edge);
        const grInterNode node = known && !known->invalid() ? *known : new_node(edge);
        if (!known || known->invalid())
        {
            shared.remove(edge); // the key of an invalid node may have the other direction
            shared.set(edge, node);
        }
        local.set(edge, node);
    }
    grTriCut::triangulate(triangle, edge_zones, local, positive, negative);
}

/// Enters the edges that a cut has cut into a caller's table.
inline void gr_enter_cuts(const grFlatCut& cut, gsTriEdgegrInterNodecoTable& cut_edges)
{
    cut_edges.reserve(cut_edges.count() + static_cast<int>(cut.cuts().size()));
    for (const grFlatCut::cut_edge& made : cut.cuts())
    {
        const gsTriEdge edge(made.node_0, made.node_1);
        cut_edges.remove(edge); // the key of an invalid node may have the other direction
        cut_edges.set(edge, grInterNode(made.t, made.index));
    }
}
