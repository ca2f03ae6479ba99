#pragma once

#include "grOtherViews.h"
#include "grToggleDepthCueingTool.h"

/// Switches depth cueing for the views that belong with the one under the pointer, as well as for that one. Views that
/// share a renderer share its depth cueing, which is switched once.
class GR_EXPORT grMultiToggleDepthCueingTool : public grToggleDepthCueingTool
{
public:
    using grToggleDepthCueingTool::grToggleDepthCueingTool;

    UT_DECLARE_TYPE(grMultiToggleDepthCueingTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
