#pragma once

#include "grStdViewTwiddleTool.h"

/// Hides what is selected, or with no selection the part under the pointer, at the press. By its argument: "hide" (or
/// none), "isolate" (hides all else; once more ends that), "see_through" (once more ends it) or "all" (ends all of
/// these). Acts on the selection that the hooks name; what is hidden is selected no more.
class GR_EXPORT grShowTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grShowTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
