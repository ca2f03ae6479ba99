#pragma once

#include "dgRenderer.h"
#include "dgView.h"
#include "giBox2.h"

#include <vector>

/// The parts of a view's viewport that no other view of its renderer lies on, as device boxes, low and high pixels
/// included. Views that are hidden and transparent lie on nothing.
std::vector<giBox2> gr_uncovered_boxes(const dgView& view);

/// The parts of a renderer's window that no view lies on.
std::vector<giBox2> gr_uncovered_boxes(const dgRenderer& renderer);

/// Clears them, in the selected buffer, as far as they lie in a device box.
void gr_erase_between_views(dgRenderer& renderer, const giBox2& device_box);

/// Calls draw for a view that may lie under others, once for each of these boxes, to which the renderer is clipped
/// meanwhile. A single box that is the whole viewport is not clipped to.
template <class Draw>
void gr_draw_in_boxes(const dgView& view, const std::vector<giBox2>& boxes, Draw draw)
{
    const giBox2& port = view.camera().view_port_dc();
    const bool whole = boxes.size() == 1 && boxes[0].contains(port.low()) && boxes[0].contains(port.high());
    for (const giBox2& box : boxes)
    {
        if (!whole)
            view.renderer()->clip(box);
        draw();
    }
    if (!whole && !boxes.empty())
        view.renderer()->clip(giBox2());
}
