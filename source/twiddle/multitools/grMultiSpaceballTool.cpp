#include "grMultiSpaceballTool.h"

#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"

UT_DEFINE_TYPE(grMultiSpaceballTool, grSpaceballTool);

void grMultiSpaceballTool::start_twiddle(const gwKeyEvent& event)
{
    grSpaceballTool::start_twiddle(event);
    if (target_view())
        find_others(event, [&](dgView* view) { return start_centre(view, event); });
}

void grMultiSpaceballTool::spaceball_event(const gwSpaceballEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        // Found once, however many views there are.
        const Motion motion = find_motion(event);
        each_other([&](dgView* view, const giPoint3& centre) { apply_motion(view, motion, centre); });
    }
    grSpaceballTool::spaceball_event(event);
}
