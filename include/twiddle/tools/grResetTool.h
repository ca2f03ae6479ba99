#pragma once

#include "grOneShotViewTool.h"

/// Looks along the z axis again, with y up, and fits the view to its contents; acts at the press.
class GR_EXPORT grResetTool : public grOneShotViewTool
{
public:
    grResetTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grResetTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;

    /// Resets a view and tells those who watch its camera.
    static void reset_view(dgView* view);
};
