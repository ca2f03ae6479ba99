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

    /// What is drawn for a colour: a direct colour itself, the entry of an indexed one. Indices beyond the ends begin
    /// again at the other end; without entries the colour's own channels count, which are white for an indexed colour.
    gsColour direct(const gsColour& colour) const
    {
        const int n = nentries();
        return colour.representation() == gsCOLOUR_INDEX && n ? this->colour((colour.index() % n + n) % n) : colour;
    }

    /// Appends a colour.
    void add(const gsColour& colour) { the_colours.push_back(colour); }

private:
    std::vector<gsColour> the_colours;
};
