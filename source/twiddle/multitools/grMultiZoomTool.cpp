#include "grMultiZoomTool.h"

#include "dgView.h"
#include "grViewOperations.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <algorithm>

UT_DEFINE_TYPE(grMultiZoomTool, grZoomTool);

void grMultiZoomTool::start_twiddle(const gwKeyEvent& event)
{
    grZoomTool::start_twiddle(event);
    if (target_view())
        find_others(event, [](dgView* view) { return view->camera().view_window(); });
}

void grMultiZoomTool::zoom_action(const gwMouseEvent& event) const
{
    const giVector2 drag = start_point() - giPoint2(event.x(), event.y());
    const double target_height = std::max(target_view()->renderer_height(), 1);
    each_other(
        [&](dgView* view, const giBox2& start_window)
        {
            // One factor for all, also on renderers of other heights: the same share of each is dragged.
            const double share = std::max(view->renderer_height(), 1) / target_height;
            zoom_view(view, start_window, drag * share);
        });
    grZoomTool::zoom_action(event);
}

void grMultiZoomTool::pan_centre_action(const gwKeyEvent& event) const
{
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    each_other([&](dgView* view) { grViewOperations::pan(*view, step); });
    grZoomTool::pan_centre_action(event);
}
