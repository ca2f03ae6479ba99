#include "grMoveFrontBackTool.h"

#include "dgView.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>

namespace
{
enum PlaneMode
{
    FRONT_PLANE = 0,
    BACK_PLANE = 1,
    BOTH_PLANES = 2
};

int plane_mode_of(const utString& args)
{
    if (args == "back")
        return BACK_PLANE;
    if (args == "both")
        return BOTH_PLANES;
    return FRONT_PLANE;
}

// By how much the whole drag moves planes.
double moving_distance(const dgView& view, const grFrontBackPlanes& start)
{
    if (start.front > start.back)
        return start.front - start.back;
    dgCamera fitted = view.camera();
    fitted.front_back_plane(start.front, start.back); // not what the drag has made of them
    if (view.root())
        fitted.clip_bounding_box(view.root()->bounding_box(), view.clipping_mode());
    const double distance = fitted.front_plane() - fitted.back_plane();
    return distance > 0 ? distance : view.camera().view_window().height();
}
}

UT_DEFINE_TYPE(grMoveFrontBackTool, grStdViewTwiddleTool);

grMoveFrontBackTool::grMoveFrontBackTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_plane_mode(plane_mode_of(args))
{}

void grMoveFrontBackTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    the_start_point = giPoint2(event.x(), event.y());
    the_start_planes = planes_of(target_view());
}

grFrontBackPlanes grMoveFrontBackTool::planes_of(dgView* view)
{
    return {view->camera().front_plane(), view->camera().back_plane()};
}

void grMoveFrontBackTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    move_planes(event);
    twiddle_mouse(event);
    refresh_views();
}

void grMoveFrontBackTool::move_planes(const gwMouseEvent& event) const
{
    const giVector2 drag = the_start_point - giPoint2(event.x(), event.y());
    move_planes(target_view(), the_start_planes, drag, the_plane_mode);
}

void grMoveFrontBackTool::move_planes(dgView* view, const grFrontBackPlanes& start, const giVector2& drag,
                                      int plane_mode)
{
    const double t = std::clamp(2 * drag.y() / std::max(view->renderer_height(), 1), -1.0, 1.0);
    const double distance = moving_distance(*view, start) * t;
    dgCamera& camera = view->camera();
    switch (plane_mode)
    {
    case FRONT_PLANE: camera.front_plane(std::max(start.front + distance, start.back)); break;
    case BACK_PLANE: camera.back_plane(std::min(start.back + distance, start.front)); break;
    default: camera.front_back_plane(start.front + distance, start.back + distance); break;
    }
    view->user_clip_planes(1);
}
