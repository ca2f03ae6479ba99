#pragma once

#include "giVector2.h"
#include "giVector3.h"
#include "utString.h"

/// What a travel of the pointer turns about, in view space.
enum grAxisMode
{
    grX_AXIS_MODE = 0,
    grY_AXIS_MODE = 1,
    grZ_AXIS_MODE = 2,
    grXYZ_AXIS_MODE = 3 ///< the axis in the view plane at right angles to the travel
};

/// The mode of "y_axis", "z_axis" and "xyz_axis"; any other text is x.
inline int gr_axis_mode(const utString& args)
{
    if (args == "y_axis")
        return grY_AXIS_MODE;
    if (args == "z_axis")
        return grZ_AXIS_MODE;
    if (args == "xyz_axis")
        return grXYZ_AXIS_MODE;
    return grX_AXIS_MODE;
}

/// The rotation vector in view space of a travel, with its pixels as the length; delta is the travel reversed. What is
/// nearest to the eye moves along (axis x z).
inline giVector3 gr_turning_pixels(const giVector2& delta, int axis_mode)
{
    switch (axis_mode)
    {
    case grY_AXIS_MODE: return giVector3(0, -delta.x(), 0);
    case grZ_AXIS_MODE: return giVector3(0, 0, delta.x());
    case grXYZ_AXIS_MODE: return giVector3(delta.y(), -delta.x(), 0);
    default: return giVector3(delta.y(), 0, 0);
    }
}
