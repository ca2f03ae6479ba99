#pragma once

#include "grStdViewTwiddleTool.h"

/// Tells the hooks of start, of mouse events up to the end, and of the end, so that an application can act on a view
/// cube of its own. The standard factory does not make it.
class GR_EXPORT grViewCubeTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grViewCubeTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
