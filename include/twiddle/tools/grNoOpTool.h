#pragma once

#include "grStdViewTwiddleTool.h"

/// Does nothing: bound to a key, it swallows that key. While the key is held it is the active tool like any other.
class GR_EXPORT grNoOpTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grNoOpTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
