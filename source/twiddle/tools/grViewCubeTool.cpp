#include "grViewCubeTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grViewCubeTool, grStdViewTwiddleTool);

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
