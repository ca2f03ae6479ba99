#include "giOutline.h"

#include "giVector2.h"
#include "giVector3.h"

#include <cmath>

namespace
{
// In tolerances: of cells, and of places, within which positions are the same but for rounding.
constexpr double cell_size = 64, place_size = 1e-3;
}

giOutline::giOutline(const giWorkplane3& workplane, double tolerance)
    : the_workplane(workplane), the_tolerance(tolerance)
{}

giOutline::Cell giOutline::cell(const giPoint2& flat, double size)
{
    return {static_cast<std::int64_t>(std::floor(flat.x() / size)),
            static_cast<std::int64_t>(std::floor(flat.y() / size))};
}

int giOutline::number(const giPoint3& p)
{
    const giPoint2 flat = the_workplane.to_workplane(p);
    // A position that comes again stays with its corner, however many others were made near it meanwhile.
    const auto [place, is_new] = the_places.try_emplace(cell(flat, place_size * the_tolerance), -1);
    if (!is_new)
        return place->second;
    // Few corners are so near to the border of their cell that another cell may hold the same one.
    const giVector2 reach(the_tolerance, the_tolerance);
    const Cell low = cell(flat - reach, cell_size * the_tolerance),
               high = cell(flat + reach, cell_size * the_tolerance);
    double nearest = the_tolerance;
    for (std::int64_t i = low.column; i <= high.column; ++i)
        for (std::int64_t j = low.row; j <= high.row; ++j)
        {
            const auto [first, last] = the_cells.equal_range({i, j});
            for (auto found = first; found != last; ++found)
                if (const double distance = flat_corner(found->second).distance(flat); distance <= nearest)
                {
                    nearest = distance;
                    place->second = found->second;
                }
        }
    if (place->second >= 0)
        return place->second;
    place->second = static_cast<int>(the_corners.size());
    the_cells.emplace(cell(flat, cell_size * the_tolerance), place->second);
    the_corners.push_back(p);
    the_flat_corners.push_back(flat);
    return place->second;
}

void giOutline::add(const giPoint3& from, const giPoint3& to)
{
    const giVector3 way = to - from;
    if (!std::isfinite(way.dot(way)))
        return; // an end that is nowhere has no cell
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
