#pragma once

#include "gi_Axis.h"

#include <optional>

/// Where the model is cut open at first.
struct vwSection
{
    std::optional<gi_Axis> across; ///< none: nowhere
    std::optional<double> offset;  ///< along the axis, none: in the middle
};
