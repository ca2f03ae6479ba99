#include "grMultiResetTool.h"

UT_DEFINE_TYPE(grMultiResetTool, grResetTool);

void grMultiResetTool::do_action(const gwKeyEvent& event)
{
    find_others(event);
    each_other([](dgView* view) { reset_view(view); });
    if (target_view())
        grResetTool::do_action(event);
}
