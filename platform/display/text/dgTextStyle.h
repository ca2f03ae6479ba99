#pragma once

#include "dgTextAlignment.h"
#include "giVector3.h"

class dgTextFont;

/// What is drawn of a text.
enum dgTextLook
{
    dgTEXT_FILLED = 0, ///< its letters
    dgTEXT_LINES = 1,  ///< the outlines of its letters
    dgTEXT_BOX = 2     ///< the outline of its room
};

/// The text attributes in force, resolved for a driver. Lengths are model units.
struct dgTextStyle
{
    const dgTextFont* font = nullptr; ///< null when the slot is free
    double height = 1;
    double width_factor = 1;
    double spacing = 0; ///< as a share of the height
    giVector3 baseline{1, 0, 0};
    giVector3 up{0, 1, 0};
    dgTextHorizontal horizontal = dgTEXT_LEFT;
    dgTextVertical vertical = dgTEXT_BASELINE;
    dgTextLook look = dgTEXT_FILLED;

    bool operator==(const dgTextStyle&) const = default;
};
