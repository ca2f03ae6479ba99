#include "dgGraphicalAttribute.h"

#include "dgRenderer.h"

UT_DEFINE_TYPE(dgGraphicalAttribute, dgGraphicalElement);

int dgGraphicalAttribute::equal(const dgGraphicalAttribute& other) const
{
    return this == &other || (type() == other.type() && equal_value(other));
}

int dgGraphicalAttribute::category() const
{
    const int code = type();
    if (code <= 2)
        return 0;
    if (code <= 20)
        return 1;
    if (code <= 24)
        return 2;
    if (code <= 66)
        return 3;
    if (code == 69 || code >= 71)
        return 4;
    return 5;
}

void dgGraphicalAttribute::draw(dgRenderer* renderer) const
{
    renderer->set_attribute(*this);
}
