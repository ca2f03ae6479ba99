#include "grViewRendererFast.h"

double grViewRendererFast::the_minimum_framerate = 1.0;

namespace
{
int the_adjust_clip_planes = 0;
int the_disable_flattening = 0;
double the_view_bbox_offset = 0.0;
grViewRendererFast::ClipPlanesResetCB the_clip_planes_resetCB = nullptr;
grViewRendererFast::PrintCallback the_print_callback = nullptr;
}

double grViewRendererFast::minimum_framerate()
{
    return the_minimum_framerate;
}

void grViewRendererFast::minimum_framerate(double frames_per_second)
{
    the_minimum_framerate = frames_per_second;
}

int grViewRendererFast::adjust_clip_planes()
{
    return the_adjust_clip_planes;
}

void grViewRendererFast::adjust_clip_planes(int on)
{
    the_adjust_clip_planes = on;
}

int grViewRendererFast::disable_flattening()
{
    return the_disable_flattening;
}

void grViewRendererFast::disable_flattening(int on)
{
    the_disable_flattening = on;
}

double grViewRendererFast::view_bbox_offset()
{
    return the_view_bbox_offset;
}

void grViewRendererFast::view_bbox_offset(double distance)
{
    the_view_bbox_offset = distance;
}

grViewRendererFast::ClipPlanesResetCB grViewRendererFast::clip_planes_resetCB()
{
    return the_clip_planes_resetCB;
}

void grViewRendererFast::set_clip_planes_resetCB(ClipPlanesResetCB callback)
{
    the_clip_planes_resetCB = callback;
}

grViewRendererFast::PrintCallback grViewRendererFast::print_callback()
{
    return the_print_callback;
}

void grViewRendererFast::set_print_callback(PrintCallback callback)
{
    the_print_callback = callback;
}
