#include "grPanTool.h"

#include "dgView.h"
#include "giVector2.h"
#include "grViewOperations.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grPanTool, grStdViewTwiddleTool);

grPanTool::grPanTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks)
{
    flags().can_timeout_twiddle(1);
    flags().can_save_camera(1);
}

void grPanTool::start_twiddle(const gwKeyEvent& event)
{
    if (start_view_twiddle(event))
        the_last_point = giPoint2(event.x(), event.y());
}

void grPanTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    the_moved = 1;
    const giPoint2 point(event.x(), event.y());
    grViewOperations::pan(*target_view(), point - the_last_point);
    the_last_point = point;
    twiddle_mouse(event);
    refresh_views();
}

void grPanTool::pan_centre_action(const gwKeyEvent& event) const
{
    grViewOperations::pan_to_centre(*target_view(), giPoint2(event.x(), event.y()));
}

void grPanTool::end_twiddle(const gwKeyEvent& event)
{
    if (target_view() && !the_moved && args() == "and_pan_centre")
    {
        pan_centre_action(event);
        refresh_views();
    }
    end_view_twiddle(event);
}
