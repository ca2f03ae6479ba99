#pragma once

#include "grExport.h"

#include <iosfwd>

/// The neighbours of one node along a polyline, such as the outline of a cut: up to two node numbers, -1 in a free
/// slot.
///
/// For a caller who has edges in any order (see grTriCut::cut along a line) and wants to walk them: with a link for
/// each node, filled by links[a].append_a_link(b) and links[b].append_a_link(a) for each edge, the node that follows b
/// when one comes from a is links[b].other_node(a).
class GR_EXPORT grNodeLink
{
public:
    grNodeLink() = default;

    /// Puts a node into the first free slot and returns 1; returns 0 when both are taken.
    int append_a_link(int node)
    {
        for (int& slot : the_nodes)
        {
            if (slot >= 0)
                continue;
            slot = node;
            return 1;
        }
        return 0;
    }

    /// Slot 0 or 1.
    int node_index(int slot) const { return the_nodes[slot]; }
    /// The node in slot 1 for the one in slot 0, and the one in slot 0 for every other number, foreign ones too.
    int other_node(int node) const { return node == the_nodes[0] ? the_nodes[1] : the_nodes[0]; }
    /// 1 when both slots are free.
    int invalid() const { return the_nodes[0] < 0 && the_nodes[1] < 0; }
    void print(std::ostream& os) const;

private:
    int the_nodes[2] = {-1, -1};
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grNodeLink& link);
