#pragma once

#include "giPoint3.h"
#include "giTriBlock.h"
#include "grZone.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

/// The zone of an edge from those of its ends.
constexpr grZone gr_edge_zone(grZone a, grZone b)
{
    if (a == b || b == grON_ZONE)
        return a;
    return a == grON_ZONE ? b : grSPANNING_ZONE;
}

/// The zone of a triangle from those of its edges.
constexpr grZone gr_triangle_zone(std::array<grZone, 3> edges)
{
    std::sort(edges.begin(), edges.end());
    if (edges[1] != edges[2] || (edges[0] != edges[1] && edges[0] != grON_ZONE))
        return grSPANNING_ZONE;
    return edges[1] == grUNDETERMINED_ZONE ? grSPANNING_ZONE : edges[1];
}

/// Appends the pieces of a triangle: zones are those of its edges, cuts the nodes on those that are cut, below 0 on the
/// others. With one or two edges cut, each counted once where a triangle has it twice; else there are no pieces.
void gr_cut_up(const giTriangle& triangle, const std::array<grZone, 3>& zones, const std::array<int, 3>& cuts,
               std::vector<giTriangle>& positive, std::vector<giTriangle>& negative);

/// Cuts one triangle block as grTriCut describes, on flat arrays: zones lie by node number, and what is hashed are the
/// edges that are cut, not all edges.
class grFlatCut
{
public:
    /// Intersects the edge from node to node. True, and sets t and point, where the surface meets it, ends included.
    using intersector = std::function<bool(int node_0, int node_1, double& t, giPoint3& point)>;

    /// An edge that is cut, its ends in the order that t refers to. Node numbers are those before the cut; the new
    /// nodes follow those of the block in the order of the cuts.
    struct cut_edge
    {
        int node_0, node_1;
        int index;
        double t;
    };

    /// zones has an entry (a grZone) for each node. Edges that are known to be cut have a node of the block, which is
    /// used as it is and given the values that lie between those of the ends. The block must outlive this.
    grFlatCut(giTriBlock& block, std::vector<std::uint8_t>&& zones, intersector intersect,
              std::vector<cut_edge>&& known = {});

    /// Cuts the block; to be called once.
    void run(bool keep_negative);

    /// Those that were not known before.
    std::span<const cut_edge> cuts() const { return std::span(the_cuts).subspan(the_known_count); }
    /// The number after the cut of a node numbered as before it; -1 when it is gone.
    int new_number(int node) const;
    /// The zone of a node before the cut; new ones lie on the surface.
    grZone zone(int node) const;

private:
    struct run_of_nodes
    {
        std::size_t start, count;
    };

    void sort_triangles(bool keep_negative);
    void cut_triangle(const giTriangle& triangle, bool keep_negative);
    void keep_piece(const giTriangle& piece);
    int node_on(int node_0, int node_1);
    void grow_slots();
    std::size_t slot_of(int node_0, int node_1) const;
    void number_nodes();
    void renumber_triangles();
    void compact_nodes();
    template <class T>
    void compact(std::vector<T>& values, const std::vector<T>& added) const;
    template <class T>
    void carry_feature(std::vector<T>* values) const;

    giTriBlock& the_block;
    std::vector<std::uint8_t> the_zones;
    intersector the_intersect;
    int the_old_count; // nodes before the cut
    std::vector<std::uint8_t> the_used;
    std::vector<cut_edge> the_cuts; // first those that were known
    std::size_t the_known_count;
    std::vector<giPoint3> the_points;                   // of the new cuts
    std::vector<int> the_slots;                         // open-addressed: number of a cut, -1 for free
    std::vector<giTriangle> the_positive, the_negative; // pieces of the triangle being cut
    std::vector<giTriangle> the_pieces;
    std::vector<int> the_numbers;       // new number by old one; empty when nothing moves
    std::vector<run_of_nodes> the_runs; // of nodes that stay, before the cut
    std::vector<std::size_t> the_added; // new cuts whose node stays
};
