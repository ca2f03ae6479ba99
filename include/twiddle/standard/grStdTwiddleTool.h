#pragma once

#include "grTwiddleTool.h"
#include "grTwiddleToolFlags.h"

class grStdTwiddleHooks;

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

private:
    grStdTwiddleHooks* the_hooks;
    grTwiddleToolFlags the_flags;
};
