#include "grRotateViewTool.h"

#include "dgView.h"
#include "grAxisTurn.h"
#include "grRotationCentre.h"
#include "grStdTwiddleHooks.h"
#include "grToolResources.h"
#include "grTwiddleTimer.h"
#include "grViewOperations.h"
#include "grWorkPlane.h"
#include "gr_surface_point.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <numbers>

UT_DEFINE_TYPE(grRotateViewTool, grTurnViewTool);

grRotateViewTool::grRotateViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grTurnViewTool(args, db, hooks), the_axis_mode(gr_axis_mode(args))
{}

void grRotateViewTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    giPoint3 centre = rotation_centre(target_view());
    if (!target_view())
        return; // closed when the centre was asked for
    if (about_cursor() && !(workplane() && workplane()->on()))
        gr_surface_point(*target_view(), giPoint2(event.x(), event.y()), centre);
    start_turning(centre, event);
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
    record_point(point);
    // Unlike the trackball, a step of nothing is told and drawn as well.
    apply_rotation(view, target_centre(), last_point() - point, the_axis_mode);
    last_point(point);
    twiddle_mouse(event);
    refresh_views();
}

void grRotateViewTool::apply_rotation(dgView* view, const giPoint3& centre, const giVector2& delta, int axis_mode)
{
    const giVector3 pixels = gr_turning_pixels(delta, axis_mode);
    const giAngle angle(2 * std::numbers::pi * pixels.length() / std::max(view->renderer_height(), 1));
    grViewOperations::turn(*view, centre, pixels, angle);
}

void grRotateViewTool::end_twiddle(const gwKeyEvent& event)
{
    start_spinning(giPoint2(event.x(), event.y()));
    end_view_twiddle(event);
}

int grRotateViewTool::find_spin_step(const grTwiddleTimer& timer)
{
    timer.diff_vector(the_spin_step);
    return 1;
}

void grRotateViewTool::spin_action() const
{
    if (dgView* view = target_view())
        apply_spin_rotation(view, target_centre());
}

void grRotateViewTool::apply_spin_rotation(dgView* view, const giPoint3& centre) const
{
    apply_rotation(view, centre, -the_spin_step * spin_steps(), the_axis_mode);
}
