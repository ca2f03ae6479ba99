#include "grMultiToggleDepthCueingTool.h"

#include "dgView.h"

#include <algorithm>
#include <vector>

UT_DEFINE_TYPE(grMultiToggleDepthCueingTool, grToggleDepthCueingTool);

void grMultiToggleDepthCueingTool::do_action(const gwKeyEvent& event)
{
    find_others(event);
    if (!target_view())
        return;
    std::vector<const dgRenderer*> switched{target_view()->renderer()};
    each_other(
        [&](dgView* view)
        {
            if (std::find(switched.begin(), switched.end(), view->renderer()) != switched.end())
                return;
            switched.push_back(view->renderer());
            toggle_depth_cueing(view);
        });
    grToggleDepthCueingTool::do_action(event);
}
