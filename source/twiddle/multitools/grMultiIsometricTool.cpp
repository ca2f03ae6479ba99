#include "grMultiIsometricTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiIsometricTool, grIsometricTool);

void grMultiIsometricTool::save_camera() const
{
    the_others.save_cameras(*this);
    grIsometricTool::save_camera();
}

void grMultiIsometricTool::do_action(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    the_others.each([](dgView* view, int) { isometric_view(view); });
    if (target_view())
        grIsometricTool::do_action(event);
}
