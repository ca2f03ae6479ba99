#include "grMultiRotateViewTool.h"

#include "dgView.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiRotateViewTool, grRotateViewTool);

void grMultiRotateViewTool::save_camera() const
{
    the_others.save_cameras(*this);
    grRotateViewTool::save_camera();
}

void grMultiRotateViewTool::start_twiddle(const gwKeyEvent& event)
{
    grRotateViewTool::start_twiddle(event);
    if (!target_view())
        return;
    the_others.find(*this, event, target_view());
    the_centres.assign(static_cast<std::size_t>(the_others.count()), giPoint3());
    the_others.each([&](dgView* view, int i) { the_centres[static_cast<std::size_t>(i)] = rotation_centre(view); });
}

void grMultiRotateViewTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        const giVector2 delta = last_point() - giPoint2(event.x(), event.y());
        the_others.each([&](dgView* view, int i)
                        { apply_rotation(view, the_centres[static_cast<std::size_t>(i)], delta, axis_mode()); });
    }
    grRotateViewTool::mouse_event(event);
}

void grMultiRotateViewTool::spin_action() const
{
    the_others.each([&](dgView* view, int i) { apply_spin_rotation(view, the_centres[static_cast<std::size_t>(i)]); });
    grRotateViewTool::spin_action();
}
