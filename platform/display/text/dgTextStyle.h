#pragma once

#include "dgTextAlignment.h"
#include "giVector3.h"

class dgTextFont;

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

    bool operator==(const dgTextStyle&) const = default;
};
