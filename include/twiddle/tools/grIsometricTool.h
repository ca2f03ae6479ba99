#pragma once

#include "grStdViewTwiddleTool.h"

/// Looks along a diagonal of the axes, so that all three show alike, and fits the view to its contents; acts at the
/// press.
class GR_EXPORT grIsometricTool : public grStdViewTwiddleTool
{
public:
    grIsometricTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grIsometricTool, grTwiddleTool);

protected:
    /// Turns the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Turns a view and tells those who watch its camera.
    static void isometric_view(dgView* view);
};
