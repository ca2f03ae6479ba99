#include "dgInteriorStyle.h"

UT_DEFINE_TYPE(dgInteriorStyle, dgNumberAttribute);

dgInteriorStyle* dgInteriorStyle::copy() const
{
    return new dgInteriorStyle(*this);
}
