#pragma once

#include "giPoint3.h"

#include <array>
#include <cstddef>
#include <map>
#include <vector>

class giBox3;

/// The local origins that stored positions are relative to, by number. Near its origin a position is held finely by
/// single precision, wherever that lies. Number 0 is the origin of the coordinates themselves, about which nearly
/// everything lies.
class dgGLOrigins
{
public:
    const giPoint3& place(unsigned origin) const { return the_entries[origin].place; }

    /// Counts one more user of an origin; release counts it off again. Number 0 is always there.
    unsigned acquire(const giPoint3& place);
    void release(unsigned origin);

    /// Where the origin of a shape belongs that fills a box: zero, unless the shape lies so far from there that it
    /// would be seen to be torn. Places are those of a grid, so that neighbours of like size share one.
    static giPoint3 for_box(const giBox3& box);

    /// The same for each of the shapes that are stored together, and drawn together if they have one origin. A shape
    /// gets another one than all of them would have when it is tiny beside its distance from that. Where many do, they
    /// share origins as far as single precision allows.
    static std::vector<giPoint3> for_boxes(const std::vector<giBox3>& boxes);

    /// The largest difference of a coordinate in the box from that of the origin.
    static double reach(const giBox3& box, const giPoint3& origin);

    /// How far one shape among others may reach from its origin.
    static double farthest(const giBox3& box);

private:
    struct Entry
    {
        giPoint3 place;
        std::size_t users = 0;
    };
    std::vector<Entry> the_entries{1};
    std::vector<unsigned> the_free;
    std::map<std::array<double, 3>, unsigned> the_numbers; // by place, without number 0
};
