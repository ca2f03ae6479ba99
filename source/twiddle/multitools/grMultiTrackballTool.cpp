#include "grMultiTrackballTool.h"

#include "giXform3.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

UT_DEFINE_TYPE(grMultiTrackballTool, grTrackballTool);

void grMultiTrackballTool::start_twiddle(const gwKeyEvent& event)
{
    grTrackballTool::start_twiddle(event);
    if (target_view())
        find_others(event, [&](dgView* view) { return trackball_centre(view, event); });
}

void grMultiTrackballTool::mouse_event(const gwMouseEvent& event)
{
    giVector3 axis;
    giAngle angle;
    // The step is found once, however many views there are.
    if (state() == grTWID_TWIDDLING && target_view() &&
        find_turn(giPoint2(event.x(), event.y()), last_point(), axis, angle))
        each_other([&](dgView* view, const giPoint3& centre) { rotate_view(view, centre, axis, angle); });
    grTrackballTool::mouse_event(event);
}

void grMultiTrackballTool::spin_action() const
{
    each_other([&](dgView* view, const giPoint3& centre) { rotate_view(view, centre, spin_axis(), spin_angle()); });
    grTrackballTool::spin_action();
}
