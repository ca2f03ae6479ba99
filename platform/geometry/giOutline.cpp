#include "giOutline.h"

#include <cmath>

namespace
{
constexpr double cell_size = 64; // tolerances
}

giOutline::giOutline(const giWorkplane3& workplane, double tolerance)
    : the_workplane(workplane), the_tolerance(tolerance)
{}

std::uint64_t giOutline::key(std::int64_t column, std::int64_t row)
{
    return static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15u ^ static_cast<std::uint64_t>(row);
}

int giOutline::number(const giPoint3& p)
{
    // Few corners are so near to the border of their cell that another cell may hold the same one.
    const giPoint2 flat = the_workplane.to_workplane(p);
    const auto cell = [this](double x)
    { return static_cast<std::int64_t>(std::floor(x / (cell_size * the_tolerance))); };
    for (std::int64_t i = cell(flat.x() - the_tolerance); i <= cell(flat.x() + the_tolerance); ++i)
        for (std::int64_t j = cell(flat.y() - the_tolerance); j <= cell(flat.y() + the_tolerance); ++j)
        {
            const auto [first, last] = the_cells.equal_range(key(i, j));
            for (auto found = first; found != last; ++found)
                if (flat_corner(found->second).coincident(flat, the_tolerance))
                    return found->second;
        }
    const int number = static_cast<int>(the_corners.size());
    the_cells.emplace(key(cell(flat.x()), cell(flat.y())), number);
    the_corners.push_back(p);
    the_flat_corners.push_back(flat);
    return number;
}

void giOutline::add(const giPoint3& from, const giPoint3& to)
{
    const std::pair<int, int> edge(number(from), number(to));
    if (edge.first == edge.second)
        return;
    const auto opposite = the_edges.find({edge.second, edge.first});
    if (opposite == the_edges.end())
        ++the_edges[edge];
    else if (--opposite->second == 0)
        the_edges.erase(opposite);
}

int giOutline::take_loops(std::vector<std::vector<int>>& loops)
{
    // More edges begin than end at the start of a piece that does not close.
    std::map<int, int> balance;
    for (const auto& [edge, times] : the_edges)
    {
        balance[edge.first] += times;
        balance[edge.second] -= times;
    }
    int open_pieces = 0;
    for (const auto& [corner, starts] : balance)
        for (int i = 0; i < starts; ++i, ++open_pieces)
            follow(corner, loops);
    while (!the_edges.empty())
        follow(the_edges.begin()->first.first, loops);
    return open_pieces;
}

// Takes edges from a corner on until no more follow.
void giOutline::follow(int start, std::vector<std::vector<int>>& loops)
{
    std::vector<int> path{start};
    std::unordered_map<int, std::size_t> places{{start, 0}};
    for (;;)
    {
        const auto next = the_edges.lower_bound({path.back(), -1});
        if (next == the_edges.end() || next->first.first != path.back())
            return;
        const int corner = next->first.second;
        if (--next->second == 0)
            the_edges.erase(next);
        const auto [place, is_new] = places.emplace(corner, path.size());
        if (is_new)
        {
            path.push_back(corner);
            continue;
        }
        // Back where the path has been: what lies between is a loop, and the path goes on without it.
        const auto loop = path.begin() + static_cast<std::ptrdiff_t>(place->second);
        loops.emplace_back(loop, path.end());
        for (auto taken = loop + 1; taken != path.end(); ++taken)
            places.erase(*taken);
        path.erase(loop + 1, path.end());
    }
}
