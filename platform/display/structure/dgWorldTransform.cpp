#include "dgWorldTransform.h"

UT_DEFINE_TYPE(dgWorldTransform, dgGraphicalAttribute);

dgWorldTransform* dgWorldTransform::copy() const
{
    return new dgWorldTransform(*this);
}

int dgWorldTransform::equal_value(const dgGraphicalAttribute& other) const
{
    return the_transform == static_cast<const dgWorldTransform&>(other).the_transform;
}
