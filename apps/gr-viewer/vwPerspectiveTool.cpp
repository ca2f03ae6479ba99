#include "vwPerspectiveTool.h"

#include "dgCamera.h"
#include "dgView.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(vwPerspectiveTool, grStdViewTwiddleTool);

void vwPerspectiveTool::show_in_perspective(dgCamera& camera, int on)
{
    const giBox2& window = camera.view_window();
    const giPoint2 middle = window.middle();
    camera.projection_reference_point(giPoint3(
        middle.x(), middle.y(), std::max(2 * std::max(window.width(), window.height()), camera.front_plane() * 1.5)));
    camera.projection(on ? dgPROJECTION_PERSPECTIVE : dgPROJECTION_PARALLEL);
}

void vwPerspectiveTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    dgCamera& camera = target_view()->camera();
    show_in_perspective(camera, camera.projection() == dgPROJECTION_PARALLEL);
    camera.world2view_altered();
    refresh_views();
}

void vwPerspectiveTool::end_twiddle(const gwKeyEvent& event)
{
    end_view_twiddle(event);
}
