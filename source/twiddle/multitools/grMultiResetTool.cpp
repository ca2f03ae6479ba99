#include "grMultiResetTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiResetTool, grResetTool);

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
