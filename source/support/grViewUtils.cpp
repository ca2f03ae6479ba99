#include "grViewUtils.h"

#include "dgView.h"
#include "gwPositionalEvent.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double smallest_box_pixels = 2;

// Both corners of a viewport are pixels of it.
giVector2 size_pixels(const giBox2& view_port)
{
    return giVector2(std::max(view_port.width(), 0.0) + 1, std::max(view_port.height(), 0.0) + 1);
}

giPoint2 on_view_plane(const dgCamera& camera, const giPoint2& device)
{
    giPoint3 result;
    camera.transform(giPoint3(device.x(), device.y(), 0), result, dgSPACE_DEVICE, dgSPACE_VIEW);
    return giPoint2(result.x(), result.y());
}
}

void grViewUtils::pan(dgView* view, const giVector2& pixels)
{
    view->camera().pan_view(pixels / size_pixels(view->camera().view_port_dc()));
}

giVector2 grViewUtils::step_to_centre(const dgView* view, const gwPositionalEvent& event)
{
    return view->camera().view_port_dc().middle() - giPoint2(event.x(), event.y());
}

void grViewUtils::pan_centre(dgView* view, const gwPositionalEvent& event)
{
    pan(view, step_to_centre(view, event));
}

int grViewUtils::box_can_be_zoomed_to(const giBox2& device_box)
{
    // Written so that a box of no numbers is refused too.
    return !device_box.empty() && (std::abs(device_box.width()) >= smallest_box_pixels ||
                                   std::abs(device_box.height()) >= smallest_box_pixels);
}

int grViewUtils::zoom_to_box(dgView* view, const giBox2& device_box)
{
    if (!box_can_be_zoomed_to(device_box))
        return 0;
    dgCamera& camera = view->camera();
    giBox2 window;
    window.merge(on_view_plane(camera, device_box.low()));
    window.merge(on_view_plane(camera, device_box.high()));

    // The smaller side grows to the proportions of the viewport, so that the window is what is seen.
    const giVector2 port = size_pixels(camera.view_port_dc());
    const double half_height = 0.5 * std::max(window.height(), window.width() * port.y() / port.x());
    const double half_width = half_height * port.x() / port.y();
    const giPoint2 middle = window.middle();
    camera.view_window(
        giBox2(middle.x() - half_width, middle.y() - half_height, middle.x() + half_width, middle.y() + half_height));
    camera.zoom(1); // has limits
    return 1;
}

int grViewUtils::remove_view(dgViewcoDList& views, dgView* view)
{
    return views.remove(view);
}
