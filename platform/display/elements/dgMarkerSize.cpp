#include "dgMarkerSize.h"

UT_DEFINE_TYPE(dgMarkerSize, dgNumberAttribute);

dgMarkerSize* dgMarkerSize::copy() const
{
    return new dgMarkerSize(*this);
}
