#include "grMultiIsometricTool.h"

UT_DEFINE_TYPE(grMultiIsometricTool, grIsometricTool);

void grMultiIsometricTool::do_action(const gwKeyEvent& event)
{
    find_others(event);
    each_other([](dgView* view) { isometric_view(view); });
    if (target_view())
        grIsometricTool::do_action(event);
}
