#include "grResetFrontBackTool.h"

#include "dgStructure.h"
#include "dgView.h"
#include "grStdTwiddleHooks.h"
#include "utTypeID.h"

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
    if (view->root())
        view->camera().clip_bounding_box(view->root()->bounding_box(), mode);
    // Every drawing fits the planes of such a view again.
    view->clipping_mode(mode);
    view->user_clip_planes(0);
}
