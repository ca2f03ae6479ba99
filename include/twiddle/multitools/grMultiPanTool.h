#pragma once

#include "grOtherViews.h"
#include "grPanTool.h"

/// Moves the pictures of the views that belong with the one under the pointer by the same pixels as that of that one.
class GR_EXPORT grMultiPanTool : public grPanTool
{
public:
    using grPanTool::grPanTool;

    UT_DECLARE_TYPE(grMultiPanTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void pan_centre_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

private:
    grOtherViews the_others;
};
