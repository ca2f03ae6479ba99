#include "grFitTool.h"

#include "grViewOperations.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grFitTool, grOneShotViewTool);

grFitTool::grFitTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grFitTool::do_action(const gwKeyEvent&)
{
    grViewOperations::fit(*target_view());
}
