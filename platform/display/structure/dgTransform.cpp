#include "dgTransform.h"

UT_DEFINE_TYPE(dgTransform, dgGraphicalAttribute);

void dgTransform::transform(const giXform3& transform)
{
    the_transform = transform;
    changed();
}

dgTransform* dgTransform::copy() const
{
    return new dgTransform(*this);
}

int dgTransform::equal_value(const dgGraphicalAttribute& other) const
{
    return the_transform == static_cast<const dgTransform&>(other).the_transform;
}
