#include "grResetFrontBackTool.h"

#include "grStdTwiddleHooks.h"
#include "grViewOperations.h"

UT_DEFINE_TYPE(grResetFrontBackTool, grOneShotViewTool);

grResetFrontBackTool::grResetFrontBackTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grResetFrontBackTool::do_action(const gwKeyEvent&)
{
    reset_planes(target_view(), hooks()->clipping_mode());
}

void grResetFrontBackTool::reset_planes(dgView* view, dgBoundingViewType mode)
{
    grViewOperations::reset_clipping_planes(*view, mode);
}
