#pragma once

#include "grOneShotViewTool.h"

/// Switches the depth cueing of the renderer on or off, if its driver can do it; acts at the press.
class GR_EXPORT grToggleDepthCueingTool : public grOneShotViewTool
{
public:
    using grOneShotViewTool::grOneShotViewTool;

    UT_DECLARE_TYPE(grToggleDepthCueingTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;

    /// Switches the renderer of a view.
    static void toggle_depth_cueing(dgView* view);
};
