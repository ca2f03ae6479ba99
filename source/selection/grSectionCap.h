#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"
#include "giPlane.h"
#include "gsColour.h"

class dgTriangleBlock;
class dgView;

/// What closes the surfaces that a plane cuts through, kept until something changes.
class grSectionCap
{
public:
    grSectionCap(const gsColour& surface, const gsColour& lines) : the_surface_colour(surface), the_line_colour(lines)
    {}

    /// Finds the cap of what a view shows, which has a root and a renderer.
    void find(const dgView& view, const giPlane& plane);

    /// Draws the cap in a view, over what is there where that lies behind it.
    void draw(dgView& view) const;

    /// Null when there is none.
    const dgTriangleBlock* block() const { return the_block.get(); }
    int open_pieces() const { return the_open_pieces; }

private:
    gsColour the_surface_colour, the_line_colour;
    const dgStructure* the_root = nullptr; // of what was found, only to be compared
    unsigned long long the_stamp = 0;
    giPlane the_plane;
    int the_open_pieces = 0;
    dgRef<dgTriangleBlock> the_block;
    dgRef<dgClientStructure> the_surface{new dgClientStructure}, the_lines{new dgClientStructure};
};
