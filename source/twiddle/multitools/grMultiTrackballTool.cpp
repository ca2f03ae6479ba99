#include "grMultiTrackballTool.h"

#include "dgView.h"
#include "giXform3.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiTrackballTool, grTrackballTool);

void grMultiTrackballTool::save_camera() const
{
    the_others.save_cameras(*this);
    grTrackballTool::save_camera();
}

void grMultiTrackballTool::start_twiddle(const gwKeyEvent& event)
{
    grTrackballTool::start_twiddle(event);
    if (!target_view())
        return;
    the_others.find(*this, event, target_view());
    the_centres.assign(static_cast<std::size_t>(the_others.count()), giPoint3());
    the_others.each([&](dgView* view, int i)
                    { the_centres[static_cast<std::size_t>(i)] = trackball_centre(view, event); });
}

void grMultiTrackballTool::mouse_event(const gwMouseEvent& event)
{
    giVector3 axis;
    giAngle angle;
    // The step is found once, however many views there are.
    if (state() == grTWID_TWIDDLING && target_view() &&
        find_turn(giPoint2(event.x(), event.y()), last_point(), axis, angle))
        the_others.each([&](dgView* view, int i)
                        { rotate_view(view, the_centres[static_cast<std::size_t>(i)], axis, angle); });
    grTrackballTool::mouse_event(event);
}

void grMultiTrackballTool::spin_action() const
{
    the_others.each([&](dgView* view, int i)
                    { rotate_view(view, the_centres[static_cast<std::size_t>(i)], spin_axis(), spin_angle()); });
    grTrackballTool::spin_action();
}
