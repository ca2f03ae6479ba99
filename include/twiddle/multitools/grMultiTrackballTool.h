#pragma once

#include "grMultiTool.h"
#include "grTrackballTool.h"

/// Turns the views that belong with the one under the pointer by the same steps as that one, each about its own centre,
/// and lets them spin on together.
class GR_EXPORT grMultiTrackballTool : public grMultiTool<grTrackballTool, giPoint3>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiTrackballTool, grTwiddleTool);

protected:
    void spin_action() const override;
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
};
