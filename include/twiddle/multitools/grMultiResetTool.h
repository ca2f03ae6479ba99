#pragma once

#include "grOtherViews.h"
#include "grResetTool.h"

/// Resets the views that belong with the one under the pointer, as well as that one.
class GR_EXPORT grMultiResetTool : public grResetTool
{
public:
    using grResetTool::grResetTool;

    UT_DECLARE_TYPE(grMultiResetTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
