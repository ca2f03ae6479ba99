#include "grMultiRotateViewTool.h"

#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

UT_DEFINE_TYPE(grMultiRotateViewTool, grRotateViewTool);

void grMultiRotateViewTool::start_twiddle(const gwKeyEvent& event)
{
    grRotateViewTool::start_twiddle(event);
    if (target_view())
        find_others(event, [&](dgView* view) { return rotation_centre(view); });
}

void grMultiRotateViewTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        const giVector2 delta = last_point() - giPoint2(event.x(), event.y());
        each_other([&](dgView* view, const giPoint3& centre) { apply_rotation(view, centre, delta, axis_mode()); });
    }
    grRotateViewTool::mouse_event(event);
}

void grMultiRotateViewTool::spin_action() const
{
    each_other([&](dgView* view, const giPoint3& centre) { apply_spin_rotation(view, centre); });
    grRotateViewTool::spin_action();
}
