#include "grScaleStructureTool.h"

#include "dgView.h"
#include "giXform3.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double largest_factor = 10;
}

UT_DEFINE_TYPE(grScaleStructureTool, grStdStructureTwiddleTool);

void grScaleStructureTool::start_twiddle(const gwKeyEvent& event)
{
    if (start_structure_twiddle(event))
        the_start_point = giPoint2(event.x(), event.y());
}

void grScaleStructureTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !structure_view())
        return;
    const double travel = event.y() - the_start_point.y();
    const double t = std::clamp(2 * travel / std::max(structure_view()->renderer_height(), 1), -1.0, 1.0);
    move_structure(giXform3::scaling(std::pow(largest_factor, t), pivot()), event);
}
