#include "grRotateViewTool.h"

#include "dgView.h"
#include "giXform3.h"
#include "grAxisTurn.h"
#include "grRotationCentre.h"
#include "grSpin.h"
#include "grStdTwiddleHooks.h"
#include "grSurfacePoint.h"
#include "grToolResources.h"
#include "grTwiddleTimer.h"
#include "grViewRefresher.h"
#include "grWorkPlane.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <numbers>

UT_DEFINE_TYPE(grRotateViewTool, grStdViewTwiddleTool);

grRotateViewTool::grRotateViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_axis_mode(gr_axis_mode(args))
{
    flags().can_timeout_twiddle(1);
    flags().can_save_camera(1);
    gr_read_flag(db, "rotate_about_cursor", the_about_cursor);
    if (hooks && hooks->allow_spinning())
    {
        the_spin = std::make_unique<grSpin>(db);
        the_timer = the_spin->new_timer();
    }
}

grRotateViewTool::~grRotateViewTool() = default;

void grRotateViewTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    the_rotation_centre = rotation_centre(target_view());
    the_last_point = giPoint2(event.x(), event.y());
    if (the_about_cursor && !(workplane() && workplane()->on()))
        gr_surface_point(*target_view(), the_last_point, the_rotation_centre);
    twiddle_start(event);
    if (refresher())
        refresher()->base_start_twiddle();
}

giPoint3 grRotateViewTool::rotation_centre(dgView* view) const
{
    const grTrackballCentreType type = gr_usable_centre_type(dgLEAVS_TRACKBALL_CENTRE_WORKPLANE, workplane());
    return gr_rotation_centre(type, *view, *hooks(), workplane());
}

void grRotateViewTool::mouse_event(const gwMouseEvent& event)
{
    dgView* view = target_view();
    if (state() != grTWID_TWIDDLING || !view)
        return;
    const giPoint2 point(event.x(), event.y());
    if (the_timer)
        the_timer->add_mouse_event(point);
    // Unlike the trackball, a step of nothing is told and drawn as well.
    apply_rotation(view, the_rotation_centre, the_last_point - point, the_axis_mode);
    the_last_point = point;
    twiddle_mouse(event);
    refresh_views();
}

void grRotateViewTool::apply_rotation(dgView* view, const giPoint3& centre, const giVector2& delta, int axis_mode)
{
    const giVector3 pixels = gr_turning_pixels(delta, axis_mode);
    const giAngle angle(2 * std::numbers::pi * pixels.length() / std::max(view->renderer_height(), 1));
    dgCamera& camera = view->camera();
    const giPoint3 centre_view = camera.orientation().transform(centre);
    camera.orientation(camera.orientation() * giXform3::rotation(angle, pixels, centre_view));
    camera.world2view_altered();
}

void grRotateViewTool::end_twiddle(const gwKeyEvent& event)
{
    if (the_timer && target_view())
    {
        the_timer->end_twiddle_event(giPoint2(event.x(), event.y()));
        the_spinning = the_timer->can_spin();
        if (the_spinning)
        {
            busy_state(grTWID_NOT_BUSY);
            the_spin->start(the_timer->gap());
            the_spin_steps = the_spin->steps();
            spin_action();
        }
    }
    end_view_twiddle(event);
}

void grRotateViewTool::spin_action() const
{
    if (dgView* view = target_view())
        apply_spin_rotation(view, the_rotation_centre);
}

void grRotateViewTool::apply_spin_rotation(dgView* view, const giPoint3& centre) const
{
    giVector2 step;
    the_timer->diff_vector(step);
    apply_rotation(view, centre, -step * the_spin_steps, the_axis_mode);
}

grIdleAction grRotateViewTool::idle_event()
{
    if (state() != grTWID_ENDED || !the_spinning || !target_view())
        return grStdViewTwiddleTool::idle_event();
    the_spin_steps = the_spin->steps();
    spin_action();
    if (the_spin->over())
        the_spinning = 0;
    if (refresher())
        refresher()->base_idle_refresh();
    twiddle_idle(grIDLE_AGAIN);
    return grIDLE_AGAIN;
}
