#pragma once

#include "grOneShotViewTool.h"

/// Shows the view under the pointer in perspective, or no longer.
class GR_EXPORT grPerspectiveTool : public grOneShotViewTool
{
public:
    using grOneShotViewTool::grOneShotViewTool;

    UT_DECLARE_TYPE(grPerspectiveTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
