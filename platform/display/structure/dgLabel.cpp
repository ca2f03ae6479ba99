#include "dgLabel.h"

UT_DEFINE_TYPE(dgLabel, dgGraphicalElement);

dgLabel* dgLabel::copy() const
{
    return new dgLabel(*this);
}
