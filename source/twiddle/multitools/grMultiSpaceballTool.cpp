#include "grMultiSpaceballTool.h"

#include "dgView.h"
#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiSpaceballTool, grSpaceballTool);

void grMultiSpaceballTool::save_camera() const
{
    the_others.save_cameras(*this);
    grSpaceballTool::save_camera();
}

void grMultiSpaceballTool::start_twiddle(const gwKeyEvent& event)
{
    grSpaceballTool::start_twiddle(event);
    if (!target_view())
        return;
    the_others.find(*this, event, target_view());
    the_centres.assign(static_cast<std::size_t>(the_others.count()), giPoint3());
    the_others.each([&](dgView* view, int i) { the_centres[static_cast<std::size_t>(i)] = start_centre(view, event); });
}

void grMultiSpaceballTool::spaceball_event(const gwSpaceballEvent& event)
{
    if (state() == grTWID_TWIDDLING && target_view())
    {
        // Found once, however many views there are.
        const Motion motion = find_motion(event);
        the_others.each([&](dgView* view, int i)
                        { apply_motion(view, motion, the_centres[static_cast<std::size_t>(i)]); });
    }
    grSpaceballTool::spaceball_event(event);
}
