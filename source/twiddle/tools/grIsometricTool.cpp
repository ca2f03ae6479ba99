#include "grIsometricTool.h"

#include "dgView.h"
#include "utTypeID.h"

namespace
{
constexpr double turn_radians = 0.7853981633974483;
// 54.736 degrees. Not quite atan(sqrt 2) = 0.9553166; saved cameras rely on this very number.
constexpr double tilt_radians = -0.9553234193716161;
}

UT_DEFINE_TYPE(grIsometricTool, grOneShotViewTool);

grIsometricTool::grIsometricTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grOneShotViewTool(args, db, hooks)
{
    flags().can_save_camera(1);
}

void grIsometricTool::do_action(const gwKeyEvent&)
{
    isometric_view(target_view());
}

void grIsometricTool::isometric_view(dgView* view)
{
    dgCamera& camera = view->camera();
    camera.reset_orientation();
    camera.rotate_view(gi_Z_AXIS, turn_radians);
    camera.rotate_view(gi_X_AXIS, tilt_radians);
    view->view_bbox();
    camera.world2view_altered();
}
