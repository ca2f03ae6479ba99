#pragma once

/// Axis of a 3-D coordinate system.
enum gi_Axis
{
    gi_X_AXIS = 0,
    gi_Y_AXIS = 1,
    gi_Z_AXIS = 2
};
