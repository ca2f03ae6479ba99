#include "grToggleDepthCueingTool.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grToggleDepthCueingTool, grStdViewTwiddleTool);

grToggleDepthCueingTool::grToggleDepthCueingTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks)
{}

void grToggleDepthCueingTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    do_action(event);
    refresh_views();
}

void grToggleDepthCueingTool::do_action(const gwKeyEvent&)
{
    toggle_depth_cueing(target_view());
}

void grToggleDepthCueingTool::toggle_depth_cueing(dgView* view)
{
    dgRenderer* renderer = view->renderer();
    if (renderer && renderer->driver_capability(renderer->mode(), dgCAPABILITY_DEPTH_CUEING))
        renderer->depth_cueing(!renderer->depth_cueing());
}

void grToggleDepthCueingTool::end_twiddle(const gwKeyEvent& event)
{
    end_view_twiddle(event);
}
