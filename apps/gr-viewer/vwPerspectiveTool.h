#pragma once

#include "grStdViewTwiddleTool.h"

class dgCamera;

/// Shows the view under the pointer in perspective, or no longer; acts at the press. Views that follow it go along.
class vwPerspectiveTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    /// Puts the eye before the middle of the window, twice as far away as the larger side of the window is long.
    static void show_in_perspective(dgCamera& camera, int on);

    UT_DECLARE_TYPE(vwPerspectiveTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
