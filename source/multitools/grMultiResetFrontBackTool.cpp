#include "grMultiResetFrontBackTool.h"

#include "grStdTwiddleHooks.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiResetFrontBackTool, grResetFrontBackTool);

grMultiResetFrontBackTool* grMultiResetFrontBackTool::ut_dynamic_cast(grTwiddleTool* tool)
{
    return ut_cast<grMultiResetFrontBackTool>(tool);
}

const grMultiResetFrontBackTool* grMultiResetFrontBackTool::ut_dynamic_cast(const grTwiddleTool* tool)
{
    return ut_cast<grMultiResetFrontBackTool>(tool);
}

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
