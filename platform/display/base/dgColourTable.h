#pragma once

#include "gsColour.h"

#include <utility>
#include <vector>

/// The direct colours that indexed colours stand for. May be empty.
class dgColourTable
{
public:
    dgColourTable() = default;
    explicit dgColourTable(std::vector<gsColour> colours) : the_colours(std::move(colours)) {}

    int nentries() const { return static_cast<int>(the_colours.size()); }

    /// index is 0 to nentries() - 1.
    const gsColour& colour(int index) const { return the_colours[static_cast<std::size_t>(index)]; }
    void colour(int index, const gsColour& colour) { the_colours[static_cast<std::size_t>(index)] = colour; }

    /// Appends a colour.
    void add(const gsColour& colour) { the_colours.push_back(colour); }

private:
    std::vector<gsColour> the_colours;
};
