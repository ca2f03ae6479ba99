#pragma once

#include "grOneShotViewTool.h"

/// Moves the world point under the pointer to the middle of the view; acts at the press.
class GR_EXPORT grPanCentreTool : public grOneShotViewTool
{
public:
    grPanCentreTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grPanCentreTool, grTwiddleTool);

protected:
    /// Also saves the camera, before it is redrawn.
    void do_action(const gwKeyEvent& event) override;
    void start_twiddle(const gwKeyEvent& event) override;
};
