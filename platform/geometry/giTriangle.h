#pragma once

#include "giExport.h"

#include <iosfwd>

/// Three node numbers counted from 0. The order is the orientation: counter-clockwise seen from the front.
/// Edge k is opposite vertex k: edge 0 = (v1, v2), 1 = (v2, v0), 2 = (v0, v1).
class giTriangle
{
public:
    constexpr giTriangle() = default;
    constexpr giTriangle(int node_0, int node_1, int node_2) : m_nodes{node_0, node_1, node_2} {}

    /// The node number of vertex 0, 1 or 2.
    constexpr int operator[](int vertex) const { return m_nodes[vertex]; }
    constexpr int& operator[](int vertex) { return m_nodes[vertex]; }
    /// First and last node number of edge 0, 1 or 2, in the direction of the orientation.
    constexpr int edge_start(int edge) const { return m_nodes[(edge + 1) % 3]; }
    constexpr int edge_end(int edge) const { return m_nodes[(edge + 2) % 3]; }

    /// Equal when the nodes stand in the same order, with the same first node.
    constexpr bool operator==(const giTriangle&) const = default;

private:
    int m_nodes[3] = {0, 0, 0};
};

/// Prints "(n0, n1, n2)".
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giTriangle& triangle);
