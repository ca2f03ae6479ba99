#pragma once

#include "dgTextStyle.h"
#include "giBox2.h"
#include "giXform3.h"
#include "gsColour.h"

/// The attributes in force, resolved for a driver. Colours are red, green and blue from 0 to 1; sizes are pixels.
struct dgDrawState
{
    float line_colour[3] = {1, 1, 1};
    float marker_colour[3] = {1, 1, 1};
    float text_colour[3] = {1, 1, 1};
    float front_colour[3] = {0.8f, 0.8f, 0.8f};
    float back_colour[3] = {0.8f, 0.8f, 0.8f};
    float line_width = 1;
    float marker_size = 1;
    int line_style = 0;
    int interior_style = 1;
    int lighting = 1;
    float opacity = 1; ///< of surfaces
    dgTextStyle text;

    bool operator==(const dgDrawState&) const = default;
};

/// The camera in force, for a driver.
struct dgCameraState
{
    giXform3 world_to_view;
    giXform3 projection; ///< view space to the cube from -1 to 1
    giBox2 view_port;    ///< device pixels, low and high included
    double front = 1;    ///< view z of the clipping planes
    double back = -1;
    int sectioned = 0;                ///< whether only what has no negative distance from the section is shown
    double section[4] = {0, 0, 0, 0}; ///< distance: dot(section, (world x, y, z, 1))
    int depth_test = 0;
    int depth_cueing = 0;
    float cue_colour[3] = {0, 0, 0};
};

/// What an area is erased with. Colours are red, green and blue from 0 to 1.
struct dgBackground
{
    static dgBackground plain(const gsColour& colour) { return graduated(colour, colour); }
    static dgBackground graduated(const gsColour& top, const gsColour& bottom)
    {
        dgBackground background;
        top.channels(background.top);
        bottom.channels(background.bottom);
        return background;
    }

    float top[3] = {0, 0, 0};
    float bottom[3] = {0, 0, 0};
};
