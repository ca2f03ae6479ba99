#include "grSpaceballTool.h"

#include "dgView.h"
#include "giXform3.h"
#include "grRotationCentre.h"
#include "grStdTwiddleHooks.h"
#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"
#include "utTypeID.h"

#include <cmath>

namespace
{
// At full deflection, for an event of the usual length.
constexpr double radians_per_event = 0.05;
constexpr double height_share_per_event = 0.02;
constexpr double zoom_per_event = 1.02;
}

UT_DEFINE_TYPE(grSpaceballTool, grStdViewTwiddleTool);

grSpaceballTool::grSpaceballTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_settings(db)
{
    flags().can_timeout_twiddle(1);
}

void grSpaceballTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    the_centre = start_centre(target_view(), event);
    if (!target_view())
        return; // closed when the centre was asked for
    start_course(event, refresher());
}

giPoint3 grSpaceballTool::start_centre(dgView* view, const gwKeyEvent& event)
{
    if (gr_usable_centre_type(hooks()->get_trackball_centre_type(), workplane()) == dgLEAVS_TRACKBALL_CENTRE_VIEW)
        hooks()->update_rotation_centre(*view, event);
    return dgS::views().contains(view) ? trackball_centre(view) : giPoint3();
}

giPoint3 grSpaceballTool::trackball_centre(dgView* view) const
{
    const grTrackballCentreType type = gr_usable_centre_type(hooks()->get_trackball_centre_type(), workplane());
    return gr_rotation_centre(type, *view, *hooks(), workplane());
}

void grSpaceballTool::mouse_event(const gwMouseEvent&) {}

void grSpaceballTool::spaceball_event(const gwSpaceballEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    spaceball_action(target_view(), event, the_centre);
    refresh_views();
}

grSpaceballTool::Motion grSpaceballTool::find_motion(const gwSpaceballEvent& event) const
{
    giVector3 rotation, translation;
    the_settings.motion(event, rotation, translation);
    const double events = event.seconds() / gwSpaceballEvent::usual_seconds;
    // Motion along the line of sight does not show in a parallel projection; zooming stands for it.
    return {rotation * (radians_per_event * events), translation * (height_share_per_event * events),
            std::pow(zoom_per_event, -translation.z() * events)};
}

void grSpaceballTool::apply_motion(dgView* view, const Motion& motion, const giPoint3& centre)
{
    dgCamera& camera = view->camera();
    const double height = camera.view_window().height();
    const giPoint3 centre_view = camera.orientation().transform(centre);
    camera.orientation(camera.orientation() *
                       giXform3::rotation(giAngle(motion.turn.length()), motion.turn, centre_view) *
                       giXform3::translation(giVector3(motion.push.x() * height, motion.push.y() * height, 0)));
    camera.zoom(motion.zoom);
    camera.world2view_altered();
}

void grSpaceballTool::spaceball_action(dgView* view, const gwSpaceballEvent& event, const giPoint3& centre) const
{
    apply_motion(view, find_motion(event), centre);
}
