#include "grMultiResetTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiResetTool, grResetTool);

grMultiResetTool* grMultiResetTool::ut_dynamic_cast(grTwiddleTool* tool)
{
    return ut_cast<grMultiResetTool>(tool);
}

const grMultiResetTool* grMultiResetTool::ut_dynamic_cast(const grTwiddleTool* tool)
{
    return ut_cast<grMultiResetTool>(tool);
}

void grMultiResetTool::save_camera() const
{
    the_others.save_cameras(*this);
    grResetTool::save_camera();
}

void grMultiResetTool::do_action(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    the_others.each([](dgView* view, int) { reset_view(view); });
    if (target_view())
        grResetTool::do_action(event);
}
