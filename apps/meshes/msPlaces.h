#pragma once

#include "giPoint3.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Points in space by number, of which no two are equal.
class msPlaces
{
public:
    msPlaces();

    /// The number of a point, from 0 in the order in which they first come.
    int number(float x, float y, float z);
    /// Gives the points away and leaves none.
    std::vector<giPoint3> release();

private:
    void grow();
    std::size_t slot(const giPoint3& p) const;

    std::vector<giPoint3> the_points;
    std::vector<int> the_slots; // numbers of points by their hash, -1: none; at most half of them
    std::size_t the_seed;
};
