#include "grTranslateStructureTool.h"

#include "dgView.h"
#include "giXform3.h"
#include "grWorkPlane.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <cmath>

namespace
{
// Below this cosine of the angle between line of sight and normal, a plane is taken to be seen from its edge.
constexpr double smallest_cosine = 0.1;
}

UT_DEFINE_TYPE(grTranslateStructureTool, grStdStructureTwiddleTool);

void grTranslateStructureTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_structure_twiddle(event))
        return;
    giVector3 sight;
    dgCamera::orientation(structure_view()->camera().orientation(), nullptr, &sight, nullptr);
    the_normal = sight;
    if (workplane_in_use() && std::abs(workplane_in_use()->normal().dot(sight)) >= smallest_cosine)
        the_normal = workplane_in_use()->normal();
    the_start = in_plane(event);
}

giPoint3 grTranslateStructureTool::in_plane(const gwPositionalEvent& event) const
{
    // Two points of the line of sight through the pointer; depths below the view plane are never behind the eye.
    const dgCamera& camera = structure_view()->camera();
    giPoint3 near_point, far_point;
    camera.transform(giPoint3(event.x(), event.y(), 0), near_point, dgSPACE_DEVICE, dgSPACE_WORLD);
    camera.transform(giPoint3(event.x(), event.y(), -1), far_point, dgSPACE_DEVICE, dgSPACE_WORLD);
    const giVector3 sight = far_point - near_point;
    const double along = the_normal.dot(sight);
    // A line of sight along the plane, as perspective can have, meets it nowhere.
    return std::abs(along) < 1e-12 ? the_start : near_point + sight * (the_normal.dot(pivot() - near_point) / along);
}

void grTranslateStructureTool::mouse_event(const gwMouseEvent& event)
{
    if (state() == grTWID_TWIDDLING && structure_view())
        move_structure(giXform3::translation(in_plane(event) - the_start), event);
}
