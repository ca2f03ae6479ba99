#pragma once

#include "grIsometricTool.h"
#include "grOtherViews.h"

/// Shows the views that belong with the one under the pointer isometrically, as well as that one.
class GR_EXPORT grMultiIsometricTool : public grIsometricTool
{
public:
    using grIsometricTool::grIsometricTool;

    UT_DECLARE_TYPE(grMultiIsometricTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
