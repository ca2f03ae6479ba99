#include "grIsometricTool.h"

#include "grViewOperations.h"

UT_DEFINE_TYPE(grIsometricTool, grOneShotViewTool);

grIsometricTool::grIsometricTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grIsometricTool::do_action(const gwKeyEvent&)
{
    isometric_view(target_view());
}

void grIsometricTool::isometric_view(dgView* view)
{
    grViewOperations::isometric(*view);
}
