#pragma once

#include "grMultiTool.h"
#include "grPanTool.h"

/// Moves the pictures of the views that belong with the one under the pointer by the same pixels as that of that one.
class GR_EXPORT grMultiPanTool : public grMultiTool<grPanTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiPanTool, grTwiddleTool);

protected:
    void pan_centre_action(const gwKeyEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
};
