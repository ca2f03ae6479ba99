#pragma once

#include "grMultiTool.h"
#include "grToggleDepthCueingTool.h"

/// Switches depth cueing for the views that belong with the one under the pointer, as well as for that one. Views that
/// share a renderer share its depth cueing, which is switched once.
class GR_EXPORT grMultiToggleDepthCueingTool : public grMultiTool<grToggleDepthCueingTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiToggleDepthCueingTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
