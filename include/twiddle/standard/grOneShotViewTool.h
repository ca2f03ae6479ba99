#pragma once

#include "grStdViewTwiddleTool.h"

/// Base of the tools that act on a view once, at the press: the view is changed, redrawn, and its camera saved.
class GR_EXPORT grOneShotViewTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grOneShotViewTool, grTwiddleTool);

protected:
    /// Changes the target view, which is there.
    virtual void do_action(const gwKeyEvent& event) = 0;

    void start_twiddle(const gwKeyEvent& event) override;
};
