#include "grMultiResetFrontBackTool.h"

#include "grStdTwiddleHooks.h"

UT_DEFINE_TYPE(grMultiResetFrontBackTool, grResetFrontBackTool);

void grMultiResetFrontBackTool::do_action(const gwKeyEvent& event)
{
    find_others(event);
    each_other([&](dgView* view) { reset_planes(view, hooks()->clipping_mode()); });
    if (target_view())
        grResetFrontBackTool::do_action(event);
}
