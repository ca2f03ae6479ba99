#include "grMultiZoomBoxTool.h"

#include "dgView.h"
#include "giVector2.h"
#include "grViewOperations.h"
#include "grViewUtils.h"

namespace
{
// The point of a viewport that stands where p stands in another one.
giPoint2 same_place(const giPoint2& p, const giBox2& in, const giBox2& to)
{
    // Both corners of a viewport are pixels of it.
    const giVector2 scale((to.width() + 1) / (in.width() + 1), (to.height() + 1) / (in.height() + 1));
    return giPoint2(to.middle().x() + (p.x() - in.middle().x()) * scale.x(),
                    to.middle().y() + (p.y() - in.middle().y()) * scale.y());
}
}

UT_DEFINE_TYPE(grMultiZoomBoxTool, grZoomBoxTool);

void grMultiZoomBoxTool::start_twiddle(const gwKeyEvent& event)
{
    grZoomBoxTool::start_twiddle(event);
    if (target_view())
        find_others(event);
}

int grMultiZoomBoxTool::zoom_action(const giBox2& device_box) const
{
    if (!grViewUtils::box_can_be_zoomed_to(device_box))
        return 0;
    const giBox2& dragged_in = target_view()->camera().view_port_dc();
    each_other(
        [&](dgView* view)
        {
            const giBox2& port = view->camera().view_port_dc();
            grViewOperations::zoom_to_box(*view, giBox2(same_place(device_box.low(), dragged_in, port),
                                                        same_place(device_box.high(), dragged_in, port)));
        });
    return grZoomBoxTool::zoom_action(device_box);
}
