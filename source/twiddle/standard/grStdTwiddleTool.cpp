#include "grStdTwiddleTool.h"

#include "grStdTwiddleHooks.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grStdTwiddleTool, grTwiddleTool);

void grStdTwiddleTool::final_frame()
{
    if (the_hooks)
        the_hooks->final_frame(this);
}

void grStdTwiddleTool::destruction_twiddle()
{
    twiddle_destruction();
}

void grStdTwiddleTool::twiddle_start(const gwKeyEvent& event)
{
    if (the_hooks)
        the_hooks->start_twiddle(this, event);
}

void grStdTwiddleTool::twiddle_mouse(const gwMouseEvent& event)
{
    if (the_hooks)
        the_hooks->mouse_event(this, event);
}

void grStdTwiddleTool::twiddle_idle(grIdleAction action)
{
    if (the_hooks)
        the_hooks->idle_event(this, action);
}

void grStdTwiddleTool::twiddle_end(const gwKeyEvent& event)
{
    if (the_hooks)
        the_hooks->end_twiddle(this, event);
}

void grStdTwiddleTool::twiddle_destruction()
{
    if (the_hooks)
        the_hooks->destruction_twiddle(this);
}
