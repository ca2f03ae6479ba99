#include "dgLineWidth.h"

UT_DEFINE_TYPE(dgLineWidth, dgNumberAttribute);

dgLineWidth* dgLineWidth::copy() const
{
    return new dgLineWidth(*this);
}
