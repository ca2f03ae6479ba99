#pragma once

#include "dgEnums.h"
#include "gsColour.h"

/// How a view is shaded and what lies behind its contents.
struct dgViewShadingContext
{
    dgHLHSRMode hlhsr_mode = dgHLHSR_ZBUFFER;
    int graduated_background = 0; ///< the background runs from bottom_colour to top_colour
    gsColour background_colour{0, 0, 0};
    gsColour top_colour{0.36, 0.42, 0.5};
    gsColour bottom_colour{0.1, 0.11, 0.13};

    void set_hlhsr_mode(dgHLHSRMode mode) { hlhsr_mode = mode; }
};
