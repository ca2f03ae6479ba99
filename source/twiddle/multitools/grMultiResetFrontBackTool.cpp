#include "grMultiResetFrontBackTool.h"

#include "grStdTwiddleHooks.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiResetFrontBackTool, grResetFrontBackTool);

void grMultiResetFrontBackTool::save_camera() const
{
    the_others.save_cameras(*this);
    grResetFrontBackTool::save_camera();
}

void grMultiResetFrontBackTool::do_action(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    the_others.each([&](dgView* view, int) { reset_planes(view, hooks()->clipping_mode()); });
    if (target_view())
        grResetFrontBackTool::do_action(event);
}
