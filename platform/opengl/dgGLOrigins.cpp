#include "dgGLOrigins.h"

#include "giBox3.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace
{
// In extents of what is stored together: there a coordinate is off by a quarter of a pixel where all of it is 1000
// pixels wide. One of many shapes, which is seldom seen as large, may lie four times as far.
constexpr double most_extents = 4096;
constexpr double most_extents_of_one = 4 * most_extents;

// Points have no extent; up to the distance of most_extents units they count as one unit wide.
constexpr double extent_of_points = 1;

// Each origin costs a draw call: where shapes that are drawn together would take more of their own than this, they
// share them in larger cells.
constexpr std::size_t many_own_origins = 64;

// Sides of the grid's cells, in extents, which become up to twice as long: in large ones a shape still reaches no
// farther than most_extents_of_one from its origin.
constexpr double small_cell_extents = 32, large_cell_extents = most_extents_of_one / 2;

std::array<double, 3> key(const giPoint3& place)
{
    return {place.x(), place.y(), place.z()};
}

double extent(const giBox3& box)
{
    return std::max({box.width(), box.height(), box.depth()});
}

double extent_or_point(const giBox3& box)
{
    const double size = extent(box);
    return size > 0 ? size : extent_of_points;
}

giPoint3 grid_place(const giBox3& box, double cell_extents)
{
    const giPoint3 middle = box.middle();
    const double size = extent(box);
    if (!(size > 0))
        return middle;
    const double cell = std::exp2(std::ceil(std::log2(cell_extents * size)));
    const auto snapped = [cell](double value) { return std::round(value / cell) * cell; };
    return giPoint3(snapped(middle.x()), snapped(middle.y()), snapped(middle.z()));
}
}

unsigned dgGLOrigins::acquire(const giPoint3& place)
{
    if (place == giPoint3())
        return 0;
    const auto [found, is_new] = the_numbers.try_emplace(key(place), 0u);
    unsigned& number = found->second;
    if (is_new && the_free.empty())
    {
        number = static_cast<unsigned>(the_entries.size());
        the_entries.emplace_back();
    }
    else if (is_new)
    {
        number = the_free.back();
        the_free.pop_back();
    }
    the_entries[number].place = place;
    ++the_entries[number].users;
    return number;
}

void dgGLOrigins::release(unsigned origin)
{
    if (origin == 0 || --the_entries[origin].users)
        return;
    the_numbers.erase(key(the_entries[origin].place));
    the_free.push_back(origin);
}

giPoint3 dgGLOrigins::for_box(const giBox3& box)
{
    // Infinities and what is no number compare false, and stay what they are.
    return reach(box, giPoint3()) > most_extents * extent_or_point(box) ? grid_place(box, small_cell_extents)
                                                                        : giPoint3();
}

std::vector<giPoint3> dgGLOrigins::for_boxes(const std::vector<giBox3>& boxes)
{
    giBox3 whole;
    for (const giBox3& box : boxes)
        whole.merge(box);
    const giPoint3 common = whole.empty() ? giPoint3() : for_box(whole);
    std::vector<giPoint3> places(boxes.size(), common);
    std::vector<std::size_t> torn;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (!boxes[i].empty() && extent(boxes[i]) > 0 && reach(boxes[i], common) > farthest(boxes[i]))
            torn.push_back(i);
    std::set<std::array<double, 3>> own;
    for (const std::size_t i : torn)
    {
        places[i] = grid_place(boxes[i], small_cell_extents);
        own.insert(key(places[i]));
        if (own.size() > many_own_origins)
            break;
    }
    if (own.size() > many_own_origins)
        for (const std::size_t i : torn)
            places[i] = grid_place(boxes[i], large_cell_extents);
    return places;
}

double dgGLOrigins::reach(const giBox3& box, const giPoint3& origin)
{
    double farthest = 0;
    for (int axis = 0; axis < 3; ++axis)
        farthest = std::max({farthest, origin[axis] - box.low()[axis], box.high()[axis] - origin[axis]});
    return farthest;
}

double dgGLOrigins::farthest(const giBox3& box)
{
    return most_extents_of_one * extent_or_point(box);
}
