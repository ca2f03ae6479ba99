#pragma once

#include "grOtherViews.h"
#include "grResetFrontBackTool.h"

/// Resets the clipping planes of the views that belong with the one under the pointer, as well as that one's.
class GR_EXPORT grMultiResetFrontBackTool : public grResetFrontBackTool
{
public:
    using grResetFrontBackTool::grResetFrontBackTool;

    UT_DECLARE_TYPE(grMultiResetFrontBackTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
