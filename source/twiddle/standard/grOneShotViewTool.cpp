#include "grOneShotViewTool.h"

UT_DEFINE_TYPE(grOneShotViewTool, grStdViewTwiddleTool);

void grOneShotViewTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    do_action(event);
    refresh_views();
    save_camera();
}
