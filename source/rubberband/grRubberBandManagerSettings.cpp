#include "grRubberBandManager.h"
#include "grRubberBandState.h"

namespace
{
grRubberBandSettings& settings()
{
    return grRubberBandState::instance().settings;
}
}

int grRubberBandManager::do_redraw()
{
    return settings().do_redraw;
}

void grRubberBandManager::do_redraw(int on)
{
    settings().do_redraw = on;
}

int grRubberBandManager::rubber_band_via_redraw()
{
    return settings().via_redraw;
}

void grRubberBandManager::rubber_band_via_redraw(int on)
{
    settings().via_redraw = on;
}

void grRubberBandManager::set_redraw_callback(int (*callback)(dgRenderer*, void*), void* data)
{
    settings().redraw_callback = callback;
    settings().redraw_callback_data = data;
    if (callback)
        settings().via_redraw = 1;
}

double grRubberBandManager::slow_retry_time()
{
    return settings().slow_retry_time;
}

void grRubberBandManager::slow_retry_time(double seconds)
{
    settings().slow_retry_time = seconds;
}

double grRubberBandManager::minimum_framerate()
{
    return settings().minimum_framerate;
}

void grRubberBandManager::minimum_framerate(double frames_per_second)
{
    settings().minimum_framerate = frames_per_second;
}

gsColour grRubberBandManager::rubber_band_colour()
{
    return settings().colour;
}

void grRubberBandManager::rubber_band_colour(const gsColour& colour)
{
    settings().colour = colour;
}

int grRubberBandManager::set_default_colour_in_xor_mode()
{
    return settings().set_default_colour_in_xor_mode;
}

void grRubberBandManager::set_default_colour_in_xor_mode(int on)
{
    settings().set_default_colour_in_xor_mode = on;
}

int grRubberBandManager::calculate_colour_in_xor_mode()
{
    return settings().calculate_colour_in_xor_mode;
}

void grRubberBandManager::calculate_colour_in_xor_mode(int on)
{
    settings().calculate_colour_in_xor_mode = on;
}

int grRubberBandManager::xor_mode_with_stencil_planes()
{
    return settings().xor_mode_with_stencil_planes;
}

void grRubberBandManager::set_xor_mode_with_stencil_planes(int on)
{
    settings().xor_mode_with_stencil_planes = on;
}

int grRubberBandManager::rubber_band_line_width()
{
    return settings().line_width;
}

void grRubberBandManager::rubber_band_line_width(int pixels)
{
    settings().line_width = pixels;
}

void grRubberBandManager::suspend_rubber_banding(int on)
{
    settings().suspended = on;
}
