#include "dgLighting.h"

UT_DEFINE_TYPE(dgLighting, dgNumberAttribute);

dgLighting* dgLighting::copy() const
{
    return new dgLighting(*this);
}
