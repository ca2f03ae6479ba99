#include "grMultiToggleDepthCueingTool.h"

#include "dgView.h"
#include "utTypeID.h"

#include <algorithm>
#include <vector>

UT_DEFINE_TYPE(grMultiToggleDepthCueingTool, grToggleDepthCueingTool);

void grMultiToggleDepthCueingTool::save_camera() const
{
    the_others.save_cameras(*this);
    grToggleDepthCueingTool::save_camera();
}

void grMultiToggleDepthCueingTool::do_action(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    if (!target_view())
        return;
    std::vector<const dgRenderer*> switched{target_view()->renderer()};
    the_others.each(
        [&](dgView* view, int)
        {
            if (std::find(switched.begin(), switched.end(), view->renderer()) != switched.end())
                return;
            switched.push_back(view->renderer());
            toggle_depth_cueing(view);
        });
    if (target_view())
        grToggleDepthCueingTool::do_action(event);
}
