#include "dgNumberAttribute.h"

UT_DEFINE_TYPE(dgNumberAttribute, dgGraphicalAttribute);

void dgNumberAttribute::value(double value)
{
    the_value = value;
    changed();
}

int dgNumberAttribute::equal_value(const dgGraphicalAttribute& other) const
{
    return the_value == static_cast<const dgNumberAttribute&>(other).the_value;
}
