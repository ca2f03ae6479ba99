#pragma once

#include "grOneShotViewTool.h"

/// Looks along a diagonal of the axes, so that all three show alike, and fits the view to its contents; acts at the
/// press.
class GR_EXPORT grIsometricTool : public grOneShotViewTool
{
public:
    grIsometricTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grIsometricTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;

    /// Turns a view and tells those who watch its camera.
    static void isometric_view(dgView* view);
};
