#pragma once

#include "grMultiTool.h"
#include "grZoomBoxTool.h"

/// Zooms the views that belong with the one under the pointer together with that one: each to the box that takes the
/// same share of its own viewport as the rectangle does of the viewport under the pointer.
class GR_EXPORT grMultiZoomBoxTool : public grMultiTool<grZoomBoxTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiZoomBoxTool, grTwiddleTool);

protected:
    int zoom_action(const giBox2& device_box) const override;
    void start_twiddle(const gwKeyEvent& event) override;
};
