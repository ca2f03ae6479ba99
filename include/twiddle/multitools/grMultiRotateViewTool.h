#pragma once

#include "grMultiTool.h"
#include "grRotateViewTool.h"

/// Turns the views that belong with the one under the pointer by the same travel as that one, each about its own
/// centre, and lets them spin on together.
class GR_EXPORT grMultiRotateViewTool : public grMultiTool<grRotateViewTool, giPoint3>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiRotateViewTool, grTwiddleTool);

protected:
    void spin_action() const override;
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
};
