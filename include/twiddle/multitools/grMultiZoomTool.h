#pragma once

#include "grMultiTool.h"
#include "grZoomTool.h"

/// Zooms the views that belong with the one under the pointer together with that one: each by the same factor from how
/// it was at the press.
class GR_EXPORT grMultiZoomTool : public grMultiTool<grZoomTool, giBox2>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiZoomTool, grTwiddleTool);

protected:
    void zoom_action(const gwMouseEvent& event) const override;
    void pan_centre_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
};
