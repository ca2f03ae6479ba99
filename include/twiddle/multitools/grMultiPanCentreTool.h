#pragma once

#include "grOtherViews.h"
#include "grPanCentreTool.h"

/// Moves the pictures of the views that belong with the one under the pointer by the same step in pixels that brings
/// the point under the pointer to the middle of that one.
class GR_EXPORT grMultiPanCentreTool : public grPanCentreTool
{
public:
    using grPanCentreTool::grPanCentreTool;

    UT_DECLARE_TYPE(grMultiPanCentreTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
