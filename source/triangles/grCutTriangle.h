#pragma once

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
        if (known && !known->invalid())
        {
            local.set(edge, *known);
            continue;
        }
        const grInterNode node = new_node(edge);
        shared.remove(edge); // the key of an invalid node may have the other direction
        shared.set(edge, node);
        local.set(edge, node);
    }
    grTriCut::triangulate(triangle, edge_zones, local, positive, negative);
}
