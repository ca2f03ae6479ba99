#pragma once

#include "grOtherViews.h"
#include "grZoomTool.h"

#include <vector>

/// Zooms the views that belong with the one under the pointer together with that one: each by the same factor from how
/// it was at the press.
class GR_EXPORT grMultiZoomTool : public grZoomTool
{
public:
    using grZoomTool::grZoomTool;

    UT_DECLARE_TYPE(grMultiZoomTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void zoom_action(const gwMouseEvent& event) const override;
    void pan_centre_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
    std::vector<giBox2> the_start_windows; // of the others
};
