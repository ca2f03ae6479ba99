#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"
#include "gsColour.h"

#include <string>

class dgView;

/// Rectangles, lines and texts over a view in pixels of its viewport: one unit is one pixel, (0, 0) the middle of the
/// lowest left one. What comes later lies on top.
class vwPixels
{
public:
    vwPixels();

    void clear();
    void rectangle(double low_x, double low_y, double high_x, double high_y, const gsColour& colour);
    void line(double from_x, double from_y, double to_x, double to_y, const gsColour& colour, double width = 1);
    /// Begins at the left end of the base line; the font is that of a slot of the view's renderer, below 0 for none,
    /// which leaves the text out.
    void text(double x, double y, const std::string& text, double height, const gsColour& colour, int font);

    /// To be called where the library's overlay callback is.
    void draw(dgView& view) const;

private:
    dgRef<dgClientStructure> the_structure;
};
