#pragma once

#include "dgElementPath.h"

#include <string>

/// A part of the model that can be selected: one block of a file.
struct vwPart
{
    std::string name;
    dgElementPath path; ///< from the root that views show
};
