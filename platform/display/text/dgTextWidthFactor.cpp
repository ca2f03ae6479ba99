#include "dgTextWidthFactor.h"

UT_DEFINE_TYPE(dgTextWidthFactor, dgNumberAttribute);

dgTextWidthFactor* dgTextWidthFactor::copy() const
{
    return new dgTextWidthFactor(*this);
}
