#include "dgTextSpacing.h"

UT_DEFINE_TYPE(dgTextSpacing, dgNumberAttribute);

dgTextSpacing* dgTextSpacing::copy() const
{
    return new dgTextSpacing(*this);
}
