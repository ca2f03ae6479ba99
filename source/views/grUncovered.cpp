#include "grUncovered.h"

#include "dgS.h"
#include "grView.h"

namespace
{
// Replaces the boxes by what a hole leaves of them.
void cut_out(std::vector<giBox2>& boxes, const giBox2& hole)
{
    std::vector<giBox2> rest;
    const auto add = [&](double low_x, double low_y, double high_x, double high_y)
    {
        if (low_x <= high_x && low_y <= high_y)
            rest.emplace_back(low_x, low_y, high_x, high_y);
    };
    for (const giBox2& box : boxes)
    {
        if (!box.overlap(hole))
        {
            rest.push_back(box);
            continue;
        }
        const double low_y = std::max(box.low().y(), hole.low().y()),
                     high_y = std::min(box.high().y(), hole.high().y());
        add(box.low().x(), box.low().y(), box.high().x(), low_y - 1);
        add(box.low().x(), low_y, hole.low().x() - 1, high_y);
        add(hole.high().x() + 1, low_y, box.high().x(), high_y);
        add(box.low().x(), high_y + 1, box.high().x(), box.high().y());
    }
    boxes = std::move(rest);
}

bool covers(const dgView& view)
{
    const grView* companion = grView::contains(&view);
    return !companion || !companion->hidden() || companion->background() != grVIEW_BACKGROUND_TRANSPARENT;
}
}

std::vector<giBox2> gr_uncovered_boxes(const dgView& view)
{
    std::vector<giBox2> boxes{view.camera().view_port_dc()};
    // Later views lie on top.
    for (auto it = dgS::views().last_it(); it && it() != &view; --it)
        if (it()->renderer() == view.renderer() && covers(*it()))
            cut_out(boxes, it()->camera().view_port_dc());
    return boxes;
}

std::vector<giBox2> gr_uncovered_boxes(const dgRenderer& renderer)
{
    std::vector<giBox2> boxes{renderer.window_box()};
    for (const dgView* view : dgS::views())
        if (view->renderer() == &renderer)
            cut_out(boxes, view->camera().view_port_dc());
    return boxes;
}

void gr_erase_between_views(dgRenderer& renderer, const giBox2& device_box)
{
    for (const giBox2& box : gr_uncovered_boxes(renderer))
    {
        if (!box.overlap(device_box))
            continue;
        renderer.clip(box.intersection(device_box));
        renderer.erase(0);
        renderer.clip(giBox2());
    }
}
