#pragma once

#include "gsColour.h"

class dgRenderer;

/// What the manager can be told, with its defaults.
struct grRubberBandSettings
{
    int do_redraw = 1;
    int via_redraw = 0;
    int (*redraw_callback)(dgRenderer*, void*) = nullptr;
    void* redraw_callback_data = nullptr;
    double slow_retry_time = 30; // seconds
    double minimum_framerate = 20;
    gsColour colour{1, 1, 1};
    int set_default_colour_in_xor_mode = 0;
    int calculate_colour_in_xor_mode = 0;
    int xor_mode_with_stencil_planes = 1;
    int line_width = 1; // pixels
    int suspended = 0;
};
