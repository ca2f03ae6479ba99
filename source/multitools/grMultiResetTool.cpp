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

void grMultiResetTool::start_twiddle(const gwKeyEvent& event)
{
    // The others are found before the action, so that one redraw shows all of them changed.
    if (!start_view_twiddle(event))
        return;
    the_others.find(*this, event, target_view());
    do_action(event);
    refresh_views();
    save_camera();
}

void grMultiResetTool::do_action(const gwKeyEvent& event) const
{
    the_others.each([](dgView* view, int) { reset_view(view); });
    if (target_view())
        grResetTool::do_action(event);
}
