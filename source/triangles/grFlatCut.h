#pragma once

#include "giPoint3.h"
#include "giTriBlock.h"
#include "grZone.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// Cuts one triangle block as grTriCut describes, on flat arrays: zones lie by node number, and what is hashed are the
/// edges that are cut, not all edges.
class grFlatCut
{
public:
    /// Intersects the edge from node to node. Answers 1 and sets t and point where the surface meets it, ends included.
    using intersector = std::function<int(int node_0, int node_1, double& t, giPoint3& point)>;

    /// An edge that was cut, its ends in the order that t refers to. Node numbers are those before the cut; the new
    /// nodes follow those of the block in the order of the cuts.
    struct cut_edge
    {
        int node_0, node_1;
        int index;
        double t;
    };

    /// zones has an entry (a grZone) for each node. The block must outlive this.
    grFlatCut(giTriBlock& block, std::vector<std::uint8_t>&& zones, intersector intersect);

    /// Cuts the block; to be called once.
    void run(int keep_negative);

    const std::vector<cut_edge>& cuts() const { return the_cuts; }
    /// The number after the cut of a node numbered as before it; -1 when it is gone.
    int new_number(int node) const;
    /// The zone of a node before the cut; new ones lie on the surface.
    grZone zone(int node) const;

private:
    struct run_of_nodes
    {
        std::size_t start, count;
    };

    void sort_triangles(int keep_negative);
    void cut_triangle(const giTriangle& triangle, int keep_negative);
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
    std::vector<cut_edge> the_cuts;
    std::vector<giPoint3> the_points;                   // of the cuts
    std::vector<int> the_slots;                         // open-addressed: number of a cut, -1 for free
    std::vector<giTriangle> the_positive, the_negative; // pieces of the triangle being cut
    std::vector<giTriangle> the_pieces;
    std::vector<int> the_numbers;       // new number by old one; empty when nothing moves
    std::vector<run_of_nodes> the_runs; // of nodes that stay, before the cut
    std::vector<std::size_t> the_added; // cuts whose node stays
};
