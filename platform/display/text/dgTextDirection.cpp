#include "dgTextDirection.h"

UT_DEFINE_TYPE(dgTextDirection, dgGraphicalAttribute);

dgTextDirection::dgTextDirection(const giVector3& baseline, const giVector3& up)
    : dgGraphicalAttribute(dgTYPE_TEXT_DIRECTION)
{
    constexpr double least_sine = 1e-6; // of the angle between the two
    const giVector3 along = baseline.unit();
    const giVector3 across = up.unit();
    const giVector3 upright = across - along * across.dot(along);
    if (!(upright.length() > least_sine && along.length() > 0))
        return;
    the_baseline = along;
    the_up = upright.unit();
}

dgTextDirection* dgTextDirection::copy() const
{
    return new dgTextDirection(*this);
}

int dgTextDirection::equal_value(const dgGraphicalAttribute& other) const
{
    const auto& direction = static_cast<const dgTextDirection&>(other);
    return the_baseline == direction.the_baseline && the_up == direction.the_up;
}
