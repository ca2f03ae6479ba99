#include "grFlatCut.h"

#include "grCutFeature.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace
{
constexpr int n_zones = 5;

// Of triangles, from the zones of their nodes.
constexpr auto triangle_zones = []
{
    std::array<std::uint8_t, n_zones * n_zones * n_zones> zones{};
    for (std::size_t i = 0; i < zones.size(); ++i)
    {
        const auto a = static_cast<grZone>(i / n_zones / n_zones), b = static_cast<grZone>(i / n_zones % n_zones),
                   c = static_cast<grZone>(i % n_zones);
        zones[i] =
            static_cast<std::uint8_t>(gr_triangle_zone({gr_edge_zone(b, c), gr_edge_zone(c, a), gr_edge_zone(a, b)}));
    }
    return zones;
}();

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

// Makes room for exactly what comes, because doubling could take as much again as the whole mesh.
template <class T>
void append_all(std::vector<T>& values, const std::vector<T>& added)
{
    values.reserve(values.size() + added.size());
    values.insert(values.end(), added.begin(), added.end());
}
}

void gr_cut_up(const giTriangle& triangle, const std::array<grZone, 3>& zones, const std::array<int, 3>& cuts,
               std::vector<giTriangle>& positive, std::vector<giTriangle>& negative)
{
    int first = -1, n_cut = 0;
    for (int k = 0; k < 3; ++k)
    {
        // A triangle that names a node twice has the same edge twice, opposite both.
        const bool again = (k > 0 && triangle[k] == triangle[0]) || (k > 1 && triangle[k] == triangle[1]);
        if (cuts[at(k)] < 0 || again)
            continue;
        if (n_cut++ == 0)
            first = k;
    }
    if (n_cut == 1)
    {
        const int r0 = triangle[first], r1 = triangle.edge_start(first), r2 = triangle.edge_end(first);
        const bool first_is_positive = zones[at((first + 2) % 3)] == grPOSITIVE_ZONE;
        (first_is_positive ? positive : negative).emplace_back(r0, r1, cuts[at(first)]);
        (first_is_positive ? negative : positive).emplace_back(r0, cuts[at(first)], r2);
    }
    else if (n_cut == 2)
    {
        auto uncut = std::find(zones.begin(), zones.end(), grPOSITIVE_ZONE);
        if (uncut == zones.end())
            uncut = std::find(zones.begin(), zones.end(), grNEGATIVE_ZONE);
        if (uncut == zones.end())
            return;
        const int k = static_cast<int>(uncut - zones.begin());
        const int r0 = triangle[k], r1 = triangle.edge_start(k), r2 = triangle.edge_end(k);
        const int x = cuts[at((k + 2) % 3)], y = cuts[at((k + 1) % 3)];
        const bool pair_is_positive = *uncut == grPOSITIVE_ZONE;
        std::vector<giTriangle>& pair = pair_is_positive ? positive : negative;
        pair.emplace_back(x, r1, y);
        pair.emplace_back(y, r1, r2);
        (pair_is_positive ? negative : positive).emplace_back(r0, x, y);
    }
}

grFlatCut::grFlatCut(giTriBlock& block, std::vector<std::uint8_t>&& zones, intersector intersect,
                     std::vector<cut_edge>&& known)
    : the_block(block), the_zones(std::move(zones)), the_intersect(std::move(intersect)),
      the_old_count(block.node_count()), the_used(the_zones.size()), the_cuts(std::move(known)),
      the_known_count(the_cuts.size())
{}

void grFlatCut::run(bool keep_negative)
{
    sort_triangles(keep_negative);
    number_nodes();
    renumber_triangles();
    append_all(the_block.triangles(), the_pieces);
    the_pieces = {};
    // Features first: they are told from each other under the old numbers.
    carry_feature(the_block.normals());
    carry_feature(the_block.texture_coordinates());
    carry_feature(the_block.curvatures());
    compact_nodes();
}

void grFlatCut::sort_triangles(bool keep_negative)
{
    std::vector<giTriangle>& triangles = the_block.triangles();
    const std::uint8_t* zones = the_zones.data();
    std::uint8_t* used = the_used.data();
    giTriangle* kept = triangles.data();
    for (const giTriangle& triangle : triangles)
    {
        const int a = triangle[0], b = triangle[1], c = triangle[2];
        const int zone = triangle_zones[at((zones[a] * n_zones + zones[b]) * n_zones + zones[c])];
        if (zone == grPOSITIVE_ZONE || (zone == grNEGATIVE_ZONE && keep_negative))
        {
            used[a] = used[b] = used[c] = 1;
            *kept++ = triangle;
        }
        else if (zone == grSPANNING_ZONE)
        {
            cut_triangle(triangle, keep_negative);
            used = the_used.data();
        }
    }
    triangles.resize(static_cast<std::size_t>(kept - triangles.data()));
}

void grFlatCut::cut_triangle(const giTriangle& triangle, bool keep_negative)
{
    std::array<grZone, 3> zones;
    std::array<int, 3> nodes;
    for (int k = 0; k < 3; ++k)
    {
        const int start = triangle.edge_start(k), end = triangle.edge_end(k);
        zones[at(k)] = gr_edge_zone(zone(start), zone(end));
        nodes[at(k)] = zones[at(k)] == grSPANNING_ZONE ? node_on(start, end) : -1;
    }
    the_positive.clear();
    the_negative.clear();
    gr_cut_up(triangle, zones, nodes, the_positive, the_negative);
    for (const giTriangle& piece : the_positive)
        keep_piece(piece);
    if (keep_negative)
        for (const giTriangle& piece : the_negative)
            keep_piece(piece);
}

void grFlatCut::keep_piece(const giTriangle& piece)
{
    for (int vertex = 0; vertex < 3; ++vertex)
        the_used[at(piece[vertex])] = 1;
    the_pieces.push_back(piece);
}

// Where an edge is in the hash table, or the free slot where it belongs.
std::size_t grFlatCut::slot_of(int node_0, int node_1) const
{
    const auto [low, high] = std::minmax(node_0, node_1);
    const std::size_t mask = the_slots.size() - 1;
    const std::uint64_t key = static_cast<std::uint64_t>(low) << 32 | static_cast<std::uint32_t>(high);
    std::size_t slot = static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 32) & mask;
    while (the_slots[slot] >= 0)
    {
        const cut_edge& cut = the_cuts[at(the_slots[slot])];
        if ((cut.node_0 == node_0 && cut.node_1 == node_1) || (cut.node_0 == node_1 && cut.node_1 == node_0))
            break;
        slot = (slot + 1) & mask;
    }
    return slot;
}

void grFlatCut::grow_slots()
{
    the_slots.assign(std::max<std::size_t>(64, std::bit_ceil(the_cuts.size() * 4)), -1);
    for (std::size_t i = 0; i < the_cuts.size(); ++i)
        the_slots[slot_of(the_cuts[i].node_0, the_cuts[i].node_1)] = static_cast<int>(i);
}

int grFlatCut::node_on(int node_0, int node_1)
{
    if (the_cuts.size() * 2 >= the_slots.size())
        grow_slots();
    int& entry = the_slots[slot_of(node_0, node_1)];
    if (entry >= 0)
        return the_cuts[at(entry)].index;
    cut_edge cut{node_0, node_1, the_old_count + static_cast<int>(the_points.size()), 0};
    giPoint3 point;
    if (!the_intersect(node_0, node_1, cut.t, point))
    {
        cut.t = 0;
        point = the_block.nodes()[node_0];
    }
    entry = static_cast<int>(the_cuts.size());
    the_cuts.push_back(cut);
    the_points.push_back(point);
    the_used.push_back(0);
    return cut.index;
}

void grFlatCut::number_nodes()
{
    const auto first_unused = std::find(the_used.begin(), the_used.end(), 0);
    for (std::size_t i = at(the_old_count); i < the_used.size(); ++i)
        if (the_used[i])
            the_added.push_back(i - at(the_old_count));
    if (first_unused == the_used.end())
        return;
    the_numbers.resize(the_used.size());
    int next = 0;
    for (std::size_t i = 0; i < the_used.size(); ++i)
        the_numbers[i] = the_used[i] ? next++ : -1;
    const auto old_end = the_used.begin() + the_old_count;
    for (auto end = the_used.begin(); end != old_end;)
    {
        const auto start = std::find(end, old_end, 1);
        end = std::find(start, old_end, 0);
        if (start != end)
            the_runs.push_back(
                {static_cast<std::size_t>(start - the_used.begin()), static_cast<std::size_t>(end - start)});
    }
}

void grFlatCut::renumber_triangles()
{
    if (the_numbers.empty())
        return;
    const int* numbers = the_numbers.data();
    for (std::vector<giTriangle>* triangles : {&the_block.triangles(), &the_pieces})
        for (giTriangle& triangle : *triangles)
            triangle = giTriangle(numbers[triangle[0]], numbers[triangle[1]], numbers[triangle[2]]);
}

// Moves the values of the nodes that stay together, and appends those of new nodes.
template <class T>
void grFlatCut::compact(std::vector<T>& values, const std::vector<T>& added) const
{
    if (!the_numbers.empty())
    {
        auto end = values.begin();
        for (const run_of_nodes& run : the_runs)
        {
            const auto start = values.begin() + static_cast<std::ptrdiff_t>(run.start);
            end = start == end ? end + static_cast<std::ptrdiff_t>(run.count) : std::copy_n(start, run.count, end);
        }
        values.erase(end, values.end());
    }
    append_all(values, added);
}

template <class T>
void grFlatCut::carry_feature(std::vector<T>* values) const
{
    if (!values)
        return;
    values->resize(at(the_old_count));
    const auto value_on = [values](const cut_edge& cut)
    { return gr_interpolated((*values)[at(cut.node_0)], (*values)[at(cut.node_1)], cut.t); };
    for (std::size_t i = 0; i < the_known_count; ++i)
        (*values)[at(the_cuts[i].index)] = value_on(the_cuts[i]);
    std::vector<T> added;
    added.reserve(the_added.size());
    for (const std::size_t i : the_added)
        added.push_back(value_on(cuts()[i]));
    compact(*values, added);
}

void grFlatCut::compact_nodes()
{
    if (the_numbers.empty() && the_added.empty())
        return;
    std::vector<giPoint3> added;
    added.reserve(the_added.size());
    for (const std::size_t i : the_added)
        added.push_back(the_points[i]);
    std::vector<giPoint3> nodes = the_block.nodes().release();
    compact(nodes, added);
    the_block.nodes() = giBoxArrPoint3(std::move(nodes));
}

int grFlatCut::new_number(int node) const
{
    return the_numbers.empty() ? node : the_numbers[at(node)];
}

grZone grFlatCut::zone(int node) const
{
    return node < the_old_count ? static_cast<grZone>(the_zones[at(node)]) : grON_ZONE;
}
