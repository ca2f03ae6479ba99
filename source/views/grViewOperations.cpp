#include "grViewOperations.h"

#include "dgView.h"
#include "giXform3.h"
#include "grPaperMove.h"
#include "grViewUtils.h"

#include <algorithm>

namespace
{
constexpr double isometric_turn_radians = 0.7853981633974483;
// 54.736 degrees. Not quite atan(sqrt 2) = 0.9553166; saved cameras rely on this very number.
constexpr double isometric_tilt_radians = -0.9553234193716161;

// Looks as an orientation says, fitted to the contents.
void look_at_all(dgView& view, const giXform3& orientation)
{
    {
        const grPaperMove paper(view);
        view.camera().orientation(orientation);
        view.view_bbox();
    }
    // Fitting moves the centre as well, so that nobody is told before it.
    view.camera().world2view_altered();
}
}

void grViewOperations::reset(dgView& view)
{
    look_at_all(view, giXform3());
}

void grViewOperations::isometric(dgView& view)
{
    const giPoint2 middle = view.camera().view_window().middle();
    const giPoint3 centre_view(middle.x(), middle.y(), 0);
    look_at_all(view, giXform3::rotation(giAngle(isometric_turn_radians), gi_Z_AXIS, centre_view) *
                          giXform3::rotation(giAngle(isometric_tilt_radians), gi_X_AXIS, centre_view));
}

void grViewOperations::fit(dgView& view)
{
    look_at_all(view, view.camera().orientation());
}

void grViewOperations::look(dgView& view, grViewSide side, gi_Axis up)
{
    const giVector3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    const giVector3 right = up == gi_X_AXIS ? y : x, back = up == gi_X_AXIS ? z : up == gi_Y_AXIS ? -z : y;
    const giVector3 above = up == gi_X_AXIS ? x : up == gi_Y_AXIS ? y : z;
    dgCamera camera;
    switch (side)
    {
    case grVIEW_FRONT: camera.orientation({}, back, above); break;
    case grVIEW_BACK: camera.orientation({}, -back, above); break;
    case grVIEW_LEFT: camera.orientation({}, right, above); break;
    case grVIEW_RIGHT: camera.orientation({}, -right, above); break;
    case grVIEW_TOP: camera.orientation({}, -above, back); break;
    case grVIEW_BOTTOM: camera.orientation({}, above, -back); break;
    }
    look_at_all(view, camera.orientation());
}

void grViewOperations::perspective(dgView& view, int on)
{
    dgCamera& camera = view.camera();
    const giBox2& window = camera.view_window();
    const giPoint2 middle = window.middle();
    camera.projection_reference_point(giPoint3(
        middle.x(), middle.y(), std::max(2 * std::max(window.width(), window.height()), camera.front_plane() * 1.5)));
    camera.projection(on ? dgPROJECTION_PERSPECTIVE : dgPROJECTION_PARALLEL);
    camera.world2view_altered();
}

void grViewOperations::reset_clipping_planes(dgView& view, dgBoundingViewType mode)
{
    if (view.root())
        view.camera().clip_bounding_box(view.root()->bounding_box(), mode);
    // Every drawing fits the planes of such a view again.
    view.clipping_mode(mode);
    view.user_clip_planes(0);
}

void grViewOperations::turn(dgView& view, const giPoint3& centre, const giVector3& axis, giAngle angle)
{
    dgCamera& camera = view.camera();
    const giPoint3 centre_view = camera.orientation().transform(centre);
    camera.orientation(camera.orientation() * giXform3::rotation(angle, axis, centre_view));
    camera.world2view_altered();
}

void grViewOperations::zoom(dgView& view, double factor)
{
    const grPaperMove paper(view);
    view.camera().zoom(factor);
}

int grViewOperations::zoom_to_box(dgView& view, const giBox2& box)
{
    const grPaperMove paper(view);
    return grViewUtils::zoom_to_box(&view, box);
}

void grViewOperations::pan(dgView& view, const giVector2& pixels)
{
    const grPaperMove paper(view);
    grViewUtils::pan(&view, pixels);
}

void grViewOperations::pan_to_centre(dgView& view, const giPoint2& position)
{
    pan(view, view.camera().view_port_dc().middle() - position);
}
