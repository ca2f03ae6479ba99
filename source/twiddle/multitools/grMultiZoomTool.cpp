#include "grMultiZoomTool.h"

#include "dgView.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(grMultiZoomTool, grZoomTool);

void grMultiZoomTool::save_camera() const
{
    the_others.save_cameras(*this);
    grZoomTool::save_camera();
}

void grMultiZoomTool::start_twiddle(const gwKeyEvent& event)
{
    grZoomTool::start_twiddle(event);
    if (!target_view())
        return;
    the_others.find(*this, event, target_view());
    the_start_windows.clear();
    the_others.each([&](dgView* view, int) { the_start_windows.push_back(view->camera().view_window()); });
}

void grMultiZoomTool::zoom_action(const gwMouseEvent& event) const
{
    const giVector2 drag = start_point() - giPoint2(event.x(), event.y());
    const double target_height = std::max(target_view()->renderer_height(), 1);
    the_others.each(
        [&](dgView* view, int i)
        {
            // One factor for all, also on renderers of other heights: the same share of each is dragged.
            const double share = std::max(view->renderer_height(), 1) / target_height;
            zoom_view(view, the_start_windows[static_cast<std::size_t>(i)], drag * share);
        });
    grZoomTool::zoom_action(event);
}

void grMultiZoomTool::pan_centre_action(const gwKeyEvent& event) const
{
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    the_others.each([&](dgView* view, int) { grViewUtils::pan(view, step); });
    grZoomTool::pan_centre_action(event);
}
