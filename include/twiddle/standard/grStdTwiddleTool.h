#pragma once

#include "grTwiddleTool.h"
#include "grTwiddleToolFlags.h"

class grStdTwiddleHooks;
class grViewRefresher;

/// Base of the standard tools: one that tells every phase of its twiddle to a hooks object.
///
/// Final frame and destruction are told by this class; a concrete tool tells start, mouse, idle and end where its own
/// work is done. Without hooks nothing is told.
class GR_EXPORT grStdTwiddleTool : public grTwiddleTool
{
public:
    /// hooks is not owned, must outlive the tool and may be null.
    grStdTwiddleTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
        : grTwiddleTool(args, db), the_hooks(hooks)
    {}

    grStdTwiddleHooks* hooks() const { return the_hooks; }
    const grTwiddleToolFlags& flags() const { return the_flags; }
    grTwiddleToolFlags& flags() { return the_flags; }

    UT_DECLARE_TYPE(grStdTwiddleTool, grTwiddleTool);

protected:
    void final_frame() override;
    void destruction_twiddle() override;

    /// Tell the hooks, with this tool.
    void twiddle_start(const gwKeyEvent& event);
    void twiddle_mouse(const gwMouseEvent& event);
    void twiddle_idle(grIdleAction action);
    void twiddle_end(const gwKeyEvent& event);
    void twiddle_destruction();

    /// The course that standard tools share, with the refresher of what they work on, which may be null. The start
    /// tells the hooks and starts the refresher. Idle time is spent on what the refresher has left to draw, and moved
    /// on in idle time draws what has just been moved, in full or as a frame; the hooks are told the answer.
    void start_course(const gwKeyEvent& event, grViewRefresher* refresher);
    grIdleAction idle_course(grViewRefresher* refresher);
    grIdleAction moved_in_idle_time(grViewRefresher* refresher, int in_full);

private:
    grStdTwiddleHooks* the_hooks;
    grTwiddleToolFlags the_flags;
};
