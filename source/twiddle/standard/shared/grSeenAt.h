#pragma once

#include "dgCamera.h"

/// Where a point in view space shows, in device pixels. The middle of the viewport for a point in the plane of the eye
/// or behind it, which is seen nowhere.
inline giPoint2 gr_seen_at(const dgCamera& camera, const giPoint3& point_view)
{
    constexpr double nearest_to_eye = 1e-6; // of its distance from the view plane
    const double eye = camera.projection_reference_point().z();
    if (camera.projection() == dgPROJECTION_PERSPECTIVE && !(eye - point_view.z() > nearest_to_eye * eye))
        return camera.view_port_dc().middle();
    giPoint3 device;
    camera.transform(point_view, device, dgSPACE_VIEW, dgSPACE_DEVICE);
    return giPoint2(device.x(), device.y());
}
