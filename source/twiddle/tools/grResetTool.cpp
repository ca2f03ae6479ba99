#include "grResetTool.h"

#include "grViewOperations.h"

UT_DEFINE_TYPE(grResetTool, grOneShotViewTool);

grResetTool::grResetTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grResetTool::do_action(const gwKeyEvent&)
{
    reset_view(target_view());
}

void grResetTool::reset_view(dgView* view)
{
    grViewOperations::reset(*view);
}
