#include "grMultiMoveFrontBackTool.h"

#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

UT_DEFINE_TYPE(grMultiMoveFrontBackTool, grMoveFrontBackTool);

void grMultiMoveFrontBackTool::start_twiddle(const gwKeyEvent& event)
{
    grMoveFrontBackTool::start_twiddle(event);
    if (target_view())
        find_others(event, planes_of);
}

void grMultiMoveFrontBackTool::move_planes(const gwMouseEvent& event) const
{
    const giVector2 drag = start_point() - giPoint2(event.x(), event.y());
    each_other([&](dgView* view, const grFrontBackPlanes& start) { move_planes(view, start, drag, plane_mode()); });
    grMoveFrontBackTool::move_planes(event);
}
