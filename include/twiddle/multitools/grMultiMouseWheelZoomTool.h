#pragma once

#include "grMouseWheelZoomTool.h"
#include "grMultiTool.h"

/// Zooms the views that belong with the one under the pointer by the same wheel step as that one, with the position of
/// the pointer measured against the viewport of that one.
class GR_EXPORT grMultiMouseWheelZoomTool : public grMultiTool<grMouseWheelZoomTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiMouseWheelZoomTool, grTwiddleTool);

protected:
    int do_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
};
