#include "grPanCentreTool.h"

#include "giPoint2.h"
#include "grViewOperations.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grPanCentreTool, grOneShotViewTool);

grPanCentreTool::grPanCentreTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grPanCentreTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    do_action(event);
    refresh_views();
}

void grPanCentreTool::do_action(const gwKeyEvent& event)
{
    grViewOperations::pan_to_centre(*target_view(), giPoint2(event.x(), event.y()));
    save_camera();
}
