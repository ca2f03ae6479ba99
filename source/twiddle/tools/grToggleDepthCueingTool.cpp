#include "grToggleDepthCueingTool.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grToggleDepthCueingTool, grOneShotViewTool);

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
