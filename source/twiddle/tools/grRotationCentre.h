#pragma once

#include "grTrackballCentreType.h"

class dgView;
class giPoint3;
class grStdTwiddleHooks;
class grWorkPlane;

/// The centre type that can be used: the workplane's falls back to the world centre when there is no workplane or it is
/// switched off.
grTrackballCentreType gr_usable_centre_type(grTrackballCentreType type, const grWorkPlane* workplane);

/// The centre of rotation of a view in world space for a usable centre type.
giPoint3 gr_rotation_centre(grTrackballCentreType type, dgView& view, grStdTwiddleHooks& hooks,
                            const grWorkPlane* workplane);
