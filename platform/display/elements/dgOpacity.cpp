#include "dgOpacity.h"

UT_DEFINE_TYPE(dgOpacity, dgNumberAttribute);

dgOpacity* dgOpacity::copy() const
{
    return new dgOpacity(*this);
}
