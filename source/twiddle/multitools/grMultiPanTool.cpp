#include "grMultiPanTool.h"

#include "giVector2.h"
#include "grViewOperations.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

UT_DEFINE_TYPE(grMultiPanTool, grPanTool);

void grMultiPanTool::start_twiddle(const gwKeyEvent& event)
{
    grPanTool::start_twiddle(event);
    if (target_view())
        find_others(event);
}

void grMultiPanTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        const giVector2 step = giPoint2(event.x(), event.y()) - last_point();
        each_other([&](dgView* view) { grViewOperations::pan(*view, step); });
    }
    grPanTool::mouse_event(event);
}

void grMultiPanTool::pan_centre_action(const gwKeyEvent& event) const
{
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    each_other([&](dgView* view) { grViewOperations::pan(*view, step); });
    grPanTool::pan_centre_action(event);
}
