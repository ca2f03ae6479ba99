#include "grStdTwiddleTool.h"

#include "grStdTwiddleHooks.h"
#include "grViewRefresher.h"
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

void grStdTwiddleTool::start_course(const gwKeyEvent& event, grViewRefresher* refresher)
{
    twiddle_start(event);
    if (refresher)
        refresher->base_start_twiddle();
}

grIdleAction grStdTwiddleTool::idle_course(grViewRefresher* refresher)
{
    const grIdleAction action = refresher ? refresher->base_idle() : grIDLE_DONE;
    twiddle_idle(action);
    return action;
}

grIdleAction grStdTwiddleTool::moved_in_idle_time(grViewRefresher* refresher, int in_full)
{
    if (refresher && in_full)
        refresher->base_idle_refresh();
    else if (refresher)
        refresher->base_refresh();
    twiddle_idle(grIDLE_AGAIN);
    return grIDLE_AGAIN;
}
