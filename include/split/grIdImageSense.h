#pragma once

#include "grExport.h"

#include <iosfwd>

/// The side that an identifier image is seen from.
enum grIdImageSense : int
{
    grID_IMAGE_UPPER = 0, ///< against the direction: from where it points to
    grID_IMAGE_LOWER = 1  ///< along the direction, the picture turned over about the vertical
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grIdImageSense sense);
