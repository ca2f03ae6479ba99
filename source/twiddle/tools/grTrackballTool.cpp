#include "grTrackballTool.h"

#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgView.h"
#include "giXform3.h"
#include "grRotationCentre.h"
#include "grSeenAt.h"
#include "grStdTwiddleHooks.h"
#include "grToolResources.h"
#include "grTrackball.h"
#include "grTwiddleTimer.h"
#include "grViewOperations.h"
#include "grViewRefresher.h"
#include "gr_draw_sphere.h"
#include "gr_surface_point.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>

namespace
{
constexpr int icon_segments = 40;
constexpr double smallest_scale_with_icon = 1e-5;
}

UT_DEFINE_TYPE(grTrackballTool, grTurnViewTool);

grTrackballTool::grTrackballTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grTurnViewTool(args, db, hooks)
{
    the_icon_radius_set = gr_read_number(db, "trackball_icon_radius", the_icon_radius);
    gr_read_number(db, "trackball_virtual_radius", the_virtual_radius);
    the_virtual_radius = std::clamp(the_virtual_radius, 1e-5, 1.0);
    gr_read_flag(db, "trackball_round", the_round);
}

grTrackballTool::~grTrackballTool() = default;

void grTrackballTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    dgView* view = target_view();
    the_centre_type = find_centre_type();
    the_trackball = std::make_unique<grTrackball>(the_virtual_radius);
    the_width = std::max(view->renderer_width(), 1);
    the_height = std::max(view->renderer_height(), 1);
    if (the_round)
        the_width = the_height = std::min(the_width, the_height);
    const giPoint3 centre = trackball_centre(view, event);
    if (!target_view())
        return; // closed when the centre was asked for
    find_centre_offset(centre);
    if (hooks()->draw_trackball_icon())
        set_icon(centre);
    start_turning(centre, event);
}

grTrackballCentreType grTrackballTool::find_centre_type() const
{
    // The names do not match: "view" is the middle of the viewport, and the type with VIEW in its name is "world".
    grTrackballCentreType type = hooks()->get_trackball_centre_type();
    if (args() == "world")
        type = dgLEAVS_TRACKBALL_CENTRE_VIEW;
    else if (args() == "view")
        type = dgLEAVS_TRACKBALL_CENTRE_VIEWPORT;
    else if (args() == "workplane")
        type = dgLEAVS_TRACKBALL_CENTRE_WORKPLANE;
    return gr_usable_centre_type(type, workplane());
}

giPoint3 grTrackballTool::trackball_centre(dgView* view, const gwKeyEvent& event)
{
    if (the_centre_type == dgLEAVS_TRACKBALL_CENTRE_VIEW)
    {
        hooks()->update_rotation_centre(*view, event);
        if (!dgS::views().contains(view))
            return giPoint3();
    }
    giPoint3 under_cursor;
    // The pointer is over the target alone.
    if (about_cursor() && the_centre_type == dgLEAVS_TRACKBALL_CENTRE_VIEW && view == target_view() &&
        gr_surface_point(*view, giPoint2(event.x(), event.y()), under_cursor))
        return under_cursor;
    return gr_rotation_centre(the_centre_type, *view, *hooks(), workplane());
}

void grTrackballTool::find_centre_offset(const giPoint3& centre)
{
    const dgCamera& camera = target_view()->camera();
    const giPoint2 centre_device = gr_seen_at(camera, camera.orientation().transform(centre));
    the_centre_offset = giPoint2(0.5 - centre_device.x() / the_width, 0.5 - centre_device.y() / the_height);
}

void grTrackballTool::set_icon(const giPoint3& centre)
{
    const double scale = target_view()->camera().scale();
    if (!(scale > smallest_scale_with_icon) || !refresher())
        return;
    // Held here, because a refresher that does not draw the view does not take the icon over.
    const dgRef<dgStructure> icon(create_sphere(centre, the_icon_radius / scale));
    refresher()->set_twiddle_icon(icon.get(), target_view());
}

dgStructure* grTrackballTool::create_sphere(const giPoint3& centre, double radius) const
{
    gsColour first, second;
    hooks()->get_trackball_icon_colours(first, second);
    dgStructure* sphere = new dgClientStructure;
    gr_draw_sphere(*sphere, centre, radius, icon_segments, first, second);
    return sphere;
}

void grTrackballTool::mouse_event(const gwMouseEvent& event)
{
    dgView* view = target_view();
    if (state() != grTWID_TWIDDLING || !view)
        return;
    const giPoint2 point(event.x(), event.y());
    record_point(point);
    // The last point stays where it is when nothing turns, so that small steps add up.
    if (!rotate_view(point, view, target_centre(), last_point()))
        return;
    twiddle_mouse(event);
    refresh_views();
    last_point(point);
}

void grTrackballTool::convert_to_trackball_coord(const giPoint2& pixel, const giPoint2& offset, giPoint2& result) const
{
    result = giPoint2(pixel.x() / the_width - 0.5 + offset.x(), pixel.y() / the_height - 0.5 + offset.y());
}

void grTrackballTool::calculate_rotation(const giPoint2& point, dgView* view, const giPoint3& centre,
                                         const giPoint2& last, giXform3& result) const
{
    giVector3 axis;
    giAngle angle;
    find_turn(point, last, axis, angle);
    result = giXform3::rotation_about_unit(angle, axis, view->camera().orientation().transform(centre));
}

int grTrackballTool::find_turn(const giPoint2& point, const giPoint2& last, giVector3& axis, giAngle& angle) const
{
    giPoint2 from, to;
    convert_to_trackball_coord(last, the_centre_offset, from);
    convert_to_trackball_coord(point, the_centre_offset, to);
    the_trackball->incremental_rotation(from, to, axis, angle);
    return angle.radians() != 0;
}

int grTrackballTool::rotate_view(const giPoint2& point, dgView* view, const giPoint3& centre,
                                 const giPoint2& last) const
{
    giXform3 rotation;
    calculate_rotation(point, view, centre, last, rotation);
    if (rotation.is_identity())
        return 0;
    dgCamera& camera = view->camera();
    camera.orientation(camera.orientation() * rotation);
    camera.world2view_altered();
    return 1;
}

void grTrackballTool::rotate_view(dgView* view, const giPoint3& centre, const giVector3& axis, giAngle angle)
{
    grViewOperations::turn(*view, centre, axis, angle);
}

void grTrackballTool::end_twiddle(const gwKeyEvent& event)
{
    if (!detail())
        return;
    start_spinning(giPoint2(event.x(), event.y()));
    if (the_icon_radius_set && refresher())
        refresher()->force_redraw_on_end_twiddle();
    end_view_twiddle(event);
}

int grTrackballTool::find_spin_step(const grTwiddleTimer& timer)
{
    giPoint2 start, end;
    timer.start_end_pt(start, end);
    return find_turn(end, start, the_spin_axis, the_spin_step);
}

void grTrackballTool::spin_action() const
{
    if (dgView* view = target_view())
        rotate_view(view, target_centre(), the_spin_axis, spin_angle());
}
