#pragma once

#include "dgEnums.h"
#include "grStdViewTwiddleTool.h"

/// Puts the clipping planes around the contents of the view again and lets the view look after them itself from then
/// on; acts at the press.
class GR_EXPORT grResetFrontBackTool : public grStdViewTwiddleTool
{
public:
    grResetFrontBackTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grResetFrontBackTool, grTwiddleTool);

protected:
    /// Resets the planes of the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Resets the planes of a view; mode is how they are fitted to the box of its contents, now and from then on.
    static void reset_planes(dgView* view, dgBoundingViewType mode);
};
