#pragma once

#include "dgEnums.h"
#include "grOneShotViewTool.h"

/// Puts the clipping planes around the contents of the view again and lets the view look after them itself from then
/// on; acts at the press.
class GR_EXPORT grResetFrontBackTool : public grOneShotViewTool
{
public:
    grResetFrontBackTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grResetFrontBackTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;

    /// Resets the planes of a view; mode is how they are fitted to the box of its contents, now and from then on.
    static void reset_planes(dgView* view, dgBoundingViewType mode);
};
