#include "grResetTool.h"

#include "dgView.h"
#include "utTypeID.h"

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
    dgCamera& camera = view->camera();
    camera.reset_orientation();
    view->view_bbox();
    // Fitting moves the centre as well; views locked to this one follow what it ends at.
    camera.world2view_altered();
}
