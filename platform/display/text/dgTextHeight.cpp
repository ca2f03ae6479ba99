#include "dgTextHeight.h"

UT_DEFINE_TYPE(dgTextHeight, dgNumberAttribute);

dgTextHeight* dgTextHeight::copy() const
{
    return new dgTextHeight(*this);
}
