#pragma once

#include "grMultiTool.h"
#include "grPanCentreTool.h"

/// Moves the pictures of the views that belong with the one under the pointer by the same step in pixels that brings
/// the point under the pointer to the middle of that one.
class GR_EXPORT grMultiPanCentreTool : public grMultiTool<grPanCentreTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiPanCentreTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
