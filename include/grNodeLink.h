#pragma once

#include "grExport.h"

#include <iosfwd>

/// The up to two nodes that a node of a polyline is linked to; -1 in a free slot.
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
    /// Slot 1 for the node in slot 0, and slot 0 for every other number.
    int other_node(int node) const { return node == the_nodes[0] ? the_nodes[1] : the_nodes[0]; }
    /// 1 when both slots are free.
    int invalid() const { return the_nodes[0] < 0 && the_nodes[1] < 0; }
    void print(std::ostream& os) const;

private:
    int the_nodes[2] = {-1, -1};
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grNodeLink& link);
