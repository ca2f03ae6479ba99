#include "grZoomTool.h"

#include "dgView.h"
#include "grPaperMove.h"
#include "grToolResources.h"
#include "grViewOperations.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <cmath>

int grZoomTool::the_invert_zoom = 0;
int grZoomTool::the_invert_zoom_read = 0;

UT_DEFINE_TYPE(grZoomTool, grStdViewTwiddleTool);

grZoomTool::grZoomTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks)
{
    flags().can_timeout_twiddle(1);
    flags().can_save_camera(1);
    if (db && !the_invert_zoom_read)
    {
        the_invert_zoom_read = 1;
        gr_read_flag(db, "invert_zoom", the_invert_zoom);
    }
}

void grZoomTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    the_start_point = giPoint2(event.x(), event.y());
    the_start_window = target_view()->camera().view_window();
}

void grZoomTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    the_moved = 1;
    zoom_action(event);
    twiddle_mouse(event);
    refresh_views();
}

void grZoomTool::zoom_action(const gwMouseEvent& event) const
{
    zoom_view(target_view(), the_start_window, the_start_point - giPoint2(event.x(), event.y()));
}

void grZoomTool::zoom_view(dgView* view, const giBox2& start_window, const giVector2& drag)
{
    double t = std::clamp(2 * drag.y() / std::max(view->renderer_height(), 1), -1.0, 1.0);
    if (the_invert_zoom)
        t = -t;
    const grPaperMove paper(*view);
    view->camera().view_window(start_window);
    view->camera().zoom(std::pow(10.0, 3 * t));
}

void grZoomTool::pan_centre_action(const gwKeyEvent& event) const
{
    grViewOperations::pan_to_centre(*target_view(), giPoint2(event.x(), event.y()));
}

void grZoomTool::end_twiddle(const gwKeyEvent& event)
{
    if (target_view() && !the_moved && args() == "and_pan_centre")
    {
        pan_centre_action(event);
        refresh_views();
    }
    end_view_twiddle(event);
}
