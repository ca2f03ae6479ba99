#include "grRotateStructureTool.h"

#include "dgView.h"
#include "giVector2.h"
#include "giXform3.h"
#include "grAxisTurn.h"
#include "grSeenAt.h"
#include "grTrackball.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <numbers>

namespace
{
constexpr double ball_radius = 0.4; // of the smaller side of the renderer
}

UT_DEFINE_TYPE(grRotateStructureTool, grStdStructureTwiddleTool);

void grRotateStructureTool::start_twiddle(const gwKeyEvent& event)
{
    if (start_structure_twiddle(event))
        the_last_point = giPoint2(event.x(), event.y());
}

giXform3 grRotateStructureTool::turn_in_view(const giPoint2& point, const giPoint3& pivot_view) const
{
    const dgView& view = *structure_view();
    if (args().length() > 0)
    {
        const giVector3 pixels = gr_turning_pixels(the_last_point - point, gr_axis_mode(args()));
        const giAngle angle(2 * std::numbers::pi * pixels.length() / std::max(view.renderer_height(), 1));
        return giXform3::rotation(angle, pixels, pivot_view);
    }
    const giPoint2 middle = gr_seen_at(view.camera(), pivot_view);
    const double side = std::max(std::min(view.renderer_width(), view.renderer_height()), 1);
    const auto on_ball = [&](const giPoint2& p)
    { return giPoint2((p.x() - middle.x()) / side, (p.y() - middle.y()) / side); };
    giVector3 axis;
    giAngle angle;
    grTrackball(ball_radius).incremental_rotation(on_ball(the_last_point), on_ball(point), axis, angle);
    return giXform3::rotation_about_unit(angle, axis, pivot_view);
}

void grRotateStructureTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !structure_view())
        return;
    const giPoint2 point(event.x(), event.y());
    const giXform3& to_view = structure_view()->camera().orientation();
    const giXform3 turn = turn_in_view(point, pivot() * to_view);
    // The last point stays where it is when nothing turns, so that small steps add up.
    if (turn.is_identity())
        return;
    the_turned *= to_view * turn * to_view.inverse();
    the_last_point = point;
    move_structure(the_turned, event);
}
