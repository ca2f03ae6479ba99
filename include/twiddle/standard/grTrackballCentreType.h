#pragma once

#include "grExport.h"

#include <iosfwd>

/// How the centre of a rotation is chosen.
enum grTrackballCentreType
{
    dgLEAVS_TRACKBALL_CENTRE_VIEW = 0,     ///< the world centre that the hooks name
    dgLEAVS_TRACKBALL_CENTRE_VIEWPORT = 1, ///< the middle of the viewport, on the view plane
    dgLEAVS_TRACKBALL_CENTRE_WORKPLANE = 2 ///< the origin of the workplane; the world centre without one
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grTrackballCentreType type);
