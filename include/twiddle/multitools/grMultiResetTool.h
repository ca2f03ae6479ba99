#pragma once

#include "grMultiTool.h"
#include "grResetTool.h"

/// Resets the views that belong with the one under the pointer, as well as that one.
class GR_EXPORT grMultiResetTool : public grMultiTool<grResetTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiResetTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
