#include "grMultiPanTool.h"

#include "dgView.h"
#include "giVector2.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiPanTool, grPanTool);

void grMultiPanTool::save_camera() const
{
    the_others.save_cameras(*this);
    grPanTool::save_camera();
}

void grMultiPanTool::start_twiddle(const gwKeyEvent& event)
{
    grPanTool::start_twiddle(event);
    if (target_view())
        the_others.find(*this, event, target_view());
}

void grMultiPanTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        const giVector2 step = giPoint2(event.x(), event.y()) - last_point();
        the_others.each([&](dgView* view, int) { grViewUtils::pan(view, step); });
    }
    grPanTool::mouse_event(event);
}

void grMultiPanTool::pan_centre_action(const gwKeyEvent& event) const
{
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    the_others.each([&](dgView* view, int) { grViewUtils::pan(view, step); });
    grPanTool::pan_centre_action(event);
}
