#pragma once

#include <algorithm>
#include <array>
#include <unordered_set>

class dgStructure;

/// The structures that a walk is in, from the root to the current one, so that it enters none of them again.
class grOpenStructures
{
public:
    void open(const dgStructure* structure)
    {
        if (the_depth < near_depth)
            the_near[the_depth] = structure;
        else
            the_far.insert(structure);
        ++the_depth;
    }

    /// structure is the last one opened.
    void close(const dgStructure* structure)
    {
        if (--the_depth >= near_depth)
            the_far.erase(structure);
    }

    bool contains(const dgStructure* structure) const
    {
        const auto end = the_near.begin() + static_cast<std::ptrdiff_t>(std::min(the_depth, near_depth));
        return std::find(the_near.begin(), end, structure) != end ||
               (the_depth > near_depth && the_far.count(structure) != 0);
    }

private:
    // Scenes are seldom deeper; so far a search through an array beats a table and allocates nothing.
    static constexpr std::size_t near_depth = 16;

    std::array<const dgStructure*, near_depth> the_near;
    std::size_t the_depth = 0;
    std::unordered_set<const dgStructure*> the_far;
};
