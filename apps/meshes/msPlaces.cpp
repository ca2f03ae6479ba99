#include "msPlaces.h"

#include <bit>
#include <cstdint>
#include <random>

namespace
{
constexpr std::size_t first_slots = 1 << 12;
}

// The seed keeps files from being made for their points to have one hash.
msPlaces::msPlaces() : the_slots(first_slots, -1), the_seed(std::random_device()()) {}

int msPlaces::number(float x, float y, float z)
{
    const giPoint3 p(x + 0.0, y + 0.0, z + 0.0); // one zero
    const std::size_t found = slot(p);
    if (the_slots[found] >= 0)
        return the_slots[found];
    const int number = static_cast<int>(the_points.size());
    the_slots[found] = number;
    the_points.push_back(p);
    if (2 * the_points.size() > the_slots.size())
        grow();
    return number;
}

std::vector<giPoint3> msPlaces::release()
{
    the_slots.assign(first_slots, -1);
    return std::exchange(the_points, {});
}

void msPlaces::grow()
{
    the_slots.assign(4 * the_slots.size(), -1);
    for (std::size_t i = 0; i < the_points.size(); ++i)
        the_slots[slot(the_points[i])] = static_cast<int>(i);
}

// Where the number of a point stands, or would.
std::size_t msPlaces::slot(const giPoint3& p) const
{
    std::uint64_t hash = the_seed;
    for (const double coordinate : {p.x(), p.y(), p.z()})
    {
        hash = (hash ^ std::bit_cast<std::uint64_t>(coordinate)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    const std::size_t mask = the_slots.size() - 1;
    std::size_t slot = hash & mask;
    while (the_slots[slot] >= 0 && !(the_points[static_cast<std::size_t>(the_slots[slot])] == p))
        slot = (slot + 1) & mask;
    return slot;
}
