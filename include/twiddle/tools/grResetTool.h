#pragma once

#include "grStdViewTwiddleTool.h"

/// Looks along the z axis again, with y up, and fits the view to its contents; acts at the press.
class GR_EXPORT grResetTool : public grStdViewTwiddleTool
{
public:
    grResetTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grResetTool, grTwiddleTool);

protected:
    /// Resets the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Resets a view and tells those who watch its camera.
    static void reset_view(dgView* view);
};
