#pragma once

#include <cstddef>
#include <functional>

/// An edge of a triangle mesh as a pair of node numbers. Edges compare and hash without regard to their direction,
/// which operator[] keeps as it was given.
class gsTriEdge
{
public:
    constexpr gsTriEdge() = default;
    constexpr gsTriEdge(int node_0, int node_1) : m_nodes{node_0, node_1} {}

    /// The node number of end 0 or 1.
    constexpr int operator[](int end) const { return m_nodes[end]; }
    /// 1 when the node is one of the ends.
    constexpr int member(int node) const { return m_nodes[0] == node || m_nodes[1] == node; }
    /// The other end than the node, which must be one of them.
    constexpr int other_index(int node) const { return m_nodes[0] == node ? m_nodes[1] : m_nodes[0]; }

    constexpr bool operator==(const gsTriEdge& edge) const
    {
        return (m_nodes[0] == edge.m_nodes[0] && m_nodes[1] == edge.m_nodes[1]) ||
               (m_nodes[0] == edge.m_nodes[1] && m_nodes[1] == edge.m_nodes[0]);
    }

private:
    int m_nodes[2] = {-1, -1};
};

template <>
struct std::hash<gsTriEdge>
{
    std::size_t operator()(const gsTriEdge& edge) const noexcept
    {
        const auto a = static_cast<unsigned>(edge[0]), b = static_cast<unsigned>(edge[1]);
        const unsigned long long low = a < b ? a : b, high = a < b ? b : a;
        // Multiplied by 2^64 divided by the golden ratio: neighbouring numbers fall far apart.
        const unsigned long long mixed = (low << 32 | high) * 0x9E3779B97F4A7C15ull;
        return static_cast<std::size_t>(mixed ^ mixed >> 32);
    }
};
