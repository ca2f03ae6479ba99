#include "grMultiMouseWheelZoomTool.h"

#include "dgView.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiMouseWheelZoomTool, grMouseWheelZoomTool);

void grMultiMouseWheelZoomTool::save_camera() const
{
    the_others.save_cameras(*this);
    grMouseWheelZoomTool::save_camera();
}

void grMultiMouseWheelZoomTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_wheel_step(event))
        return;
    the_others.find(*this, event, target_view());
    if (do_action(event))
        refresh_views();
}

int grMultiMouseWheelZoomTool::do_action(const gwKeyEvent& event) const
{
    int changed = 0;
    the_others.each([&](dgView* view, int) { changed |= zoom_and_pan(view, target_view(), event); });
    return grMouseWheelZoomTool::do_action(event) | changed;
}
