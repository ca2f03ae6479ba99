#pragma once

#include "grStdViewTwiddleTool.h"

/// Moves the world point under the pointer to the middle of the view; acts at the press.
class GR_EXPORT grPanCentreTool : public grStdViewTwiddleTool
{
public:
    grPanCentreTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grPanCentreTool, grTwiddleTool);

protected:
    /// Moves the world point under the event to the middle of the target view and saves the camera.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
