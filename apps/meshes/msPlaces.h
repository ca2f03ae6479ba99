#pragma once

#include "giPoint3.h"

#include <cstddef>
#include <vector>

/// Points in space by number, of which no two are equal.
class msPlaces
{
public:
    msPlaces();

    /// Appends the numbers of points, given by three coordinates each, to numbers: from 0 in the order in which equal
    /// ones first come.
    void add(const float* coordinates, int count, std::vector<int>& numbers);
    /// The points by their numbers.
    std::vector<giPoint3>& points() { return the_points; }

private:
    struct Slot
    {
        float x, y, z;
        int number; // -1: free
    };

    std::size_t hash(const Slot& point) const;
    int number(const Slot& point, std::size_t hash);
    void grow();

    std::vector<giPoint3> the_points;
    std::vector<Slot> the_slots; // points by their hash, in at most half of them
    std::size_t the_seed;
};
