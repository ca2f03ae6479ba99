#pragma once

#include "grOtherViews.h"
#include "grZoomBoxTool.h"

/// Zooms the views that belong with the one under the pointer together with that one: each to the box that takes the
/// same share of its own viewport as the rectangle does of the viewport under the pointer.
class GR_EXPORT grMultiZoomBoxTool : public grZoomBoxTool
{
public:
    using grZoomBoxTool::grZoomBoxTool;

    UT_DECLARE_TYPE(grMultiZoomBoxTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    int zoom_action(const giBox2& device_box) const override;
    void start_twiddle(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
