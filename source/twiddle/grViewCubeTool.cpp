#include "grViewCubeTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grViewCubeTool, grStdViewTwiddleTool);

grViewCubeTool* grViewCubeTool::ut_dynamic_cast(grTwiddleTool* tool)
{
    return ut_cast<grViewCubeTool>(tool);
}

const grViewCubeTool* grViewCubeTool::ut_dynamic_cast(const grTwiddleTool* tool)
{
    return ut_cast<grViewCubeTool>(tool);
}

void grViewCubeTool::start_twiddle(const gwKeyEvent& event)
{
    twiddle_start(event);
}

void grViewCubeTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING)
        twiddle_mouse(event);
}

void grViewCubeTool::end_twiddle(const gwKeyEvent& event)
{
    twiddle_end(event);
}
