#include "dgTextAlignment.h"

UT_DEFINE_TYPE(dgTextAlignment, dgGraphicalAttribute);

dgTextAlignment* dgTextAlignment::copy() const
{
    return new dgTextAlignment(*this);
}

int dgTextAlignment::equal_value(const dgGraphicalAttribute& other) const
{
    const auto& alignment = static_cast<const dgTextAlignment&>(other);
    return the_horizontal == alignment.the_horizontal && the_vertical == alignment.the_vertical;
}
