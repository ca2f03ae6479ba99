#include "grZoomBoxTool.h"

#include "dgView.h"
#include "grRubberBandRectangle.h"
#include "grViewOperations.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grZoomBoxTool, grStdViewTwiddleTool);

grZoomBoxTool::grZoomBoxTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_rectangle(std::make_unique<grRubberBandRectangle>())
{
    flags().can_save_camera(1);
}

grZoomBoxTool::~grZoomBoxTool() = default;

void grZoomBoxTool::start_twiddle(const gwKeyEvent& event)
{
    the_start_point = giPoint2(event.x(), event.y());
    start_view_twiddle(event);
}

void grZoomBoxTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    // The scene is not refreshed: that it need not be drawn is what rubber banding is for.
    the_rectangle->draw(*target_view(), the_start_point, giPoint2(event.x(), event.y()));
    twiddle_mouse(event);
}

int grZoomBoxTool::zoom_action(const giBox2& device_box) const
{
    return grViewOperations::zoom_to_box(*target_view(), device_box);
}

void grZoomBoxTool::end_twiddle(const gwKeyEvent& event)
{
    the_rectangle->finish(target_view());
    if (target_view() && event.window() && zoom_action(giBox2(the_start_point, giPoint2(event.x(), event.y()))))
        refresh_views();
    end_view_twiddle(event);
}
