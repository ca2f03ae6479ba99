#pragma once

#include "grMultiTool.h"
#include "grResetFrontBackTool.h"

/// Resets the clipping planes of the views that belong with the one under the pointer, as well as that one's.
class GR_EXPORT grMultiResetFrontBackTool : public grMultiTool<grResetFrontBackTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiResetFrontBackTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
