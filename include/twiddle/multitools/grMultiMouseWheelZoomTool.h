#pragma once

#include "grMouseWheelZoomTool.h"
#include "grOtherViews.h"

/// Zooms the views that belong with the one under the pointer by the same wheel step as that one, with the position of
/// the pointer measured against the viewport of that one.
class GR_EXPORT grMultiMouseWheelZoomTool : public grMouseWheelZoomTool
{
public:
    using grMouseWheelZoomTool::grMouseWheelZoomTool;

    UT_DECLARE_TYPE(grMultiMouseWheelZoomTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    int do_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
