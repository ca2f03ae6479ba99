#pragma once

#include "grStdViewTwiddleTool.h"

/// Switches the depth cueing of the renderer on or off, if its driver can do it; acts at the press.
class GR_EXPORT grToggleDepthCueingTool : public grStdViewTwiddleTool
{
public:
    grToggleDepthCueingTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grToggleDepthCueingTool, grTwiddleTool);

protected:
    /// Switches the renderer of the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Switches the renderer of a view.
    static void toggle_depth_cueing(dgView* view);
};
