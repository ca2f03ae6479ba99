#pragma once

#include "giAngle.h"

/// Builds an angle from degrees: giAngle quarter_turn = giAngleDegrees(90).
class giAngleDegrees : public giAngle
{
public:
    constexpr explicit giAngleDegrees(double degrees) : giAngle(degrees * (3.14159265358979323846 / 180.0)) {}
};
