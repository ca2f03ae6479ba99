#include "grMultiMouseWheelZoomTool.h"

#include "gwKeyEvent.h"

UT_DEFINE_TYPE(grMultiMouseWheelZoomTool, grMouseWheelZoomTool);

void grMultiMouseWheelZoomTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_wheel_step(event))
        return;
    find_others(event);
    if (target_view() && do_action(event))
        refresh_views();
}

int grMultiMouseWheelZoomTool::do_action(const gwKeyEvent& event) const
{
    int changed = 0;
    each_other([&](dgView* view) { changed |= zoom_and_pan(view, target_view(), event); });
    return grMouseWheelZoomTool::do_action(event) | changed;
}
