#include "grMultiMoveFrontBackTool.h"

#include "dgView.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiMoveFrontBackTool, grMoveFrontBackTool);

void grMultiMoveFrontBackTool::save_camera() const
{
    the_others.save_cameras(*this);
    grMoveFrontBackTool::save_camera();
}

void grMultiMoveFrontBackTool::start_twiddle(const gwKeyEvent& event)
{
    grMoveFrontBackTool::start_twiddle(event);
    if (!target_view())
        return;
    the_others.find(*this, event, target_view());
    the_start_planes.clear();
    the_others.each(
        [&](dgView* view, int) {
            the_start_planes.push_back({view->camera().front_plane(), view->camera().back_plane()});
        });
}

void grMultiMoveFrontBackTool::move_planes(const gwMouseEvent& event) const
{
    const giVector2 drag = start_point() - giPoint2(event.x(), event.y());
    the_others.each(
        [&](dgView* view, int i)
        {
            const Planes& start = the_start_planes[static_cast<std::size_t>(i)];
            move_planes(view, start.front, start.back, drag, plane_mode());
        });
    grMoveFrontBackTool::move_planes(event);
}
