#include "dgLineStyle.h"

UT_DEFINE_TYPE(dgLineStyle, dgNumberAttribute);

dgLineStyle* dgLineStyle::copy() const
{
    return new dgLineStyle(*this);
}
