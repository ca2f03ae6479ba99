#include "grRotationCentre.h"

#include "dgView.h"
#include "giPoint3.h"
#include "grStdTwiddleHooks.h"
#include "grWorkPlane.h"

grTrackballCentreType gr_usable_centre_type(grTrackballCentreType type, const grWorkPlane* workplane)
{
    if (type == dgLEAVS_TRACKBALL_CENTRE_WORKPLANE && !(workplane && workplane->on()))
        return dgLEAVS_TRACKBALL_CENTRE_VIEW;
    return type;
}

giPoint3 gr_rotation_centre(grTrackballCentreType type, dgView& view, grStdTwiddleHooks& hooks,
                            const grWorkPlane* workplane)
{
    switch (type)
    {
    case dgLEAVS_TRACKBALL_CENTRE_VIEW: return hooks.get_world_centre(view);
    case dgLEAVS_TRACKBALL_CENTRE_VIEWPORT:
    {
        const giPoint2 middle = view.camera().view_port_dc().middle();
        giPoint3 centre;
        view.camera().transform(giPoint3(middle.x(), middle.y(), 0), centre, dgSPACE_DEVICE, dgSPACE_WORLD);
        return centre;
    }
    case dgLEAVS_TRACKBALL_CENTRE_WORKPLANE: return workplane->origin();
    }
    return hooks.get_world_centre(view);
}
