#include "dgTextFontSlot.h"

UT_DEFINE_TYPE(dgTextFontSlot, dgNumberAttribute);

dgTextFontSlot* dgTextFontSlot::copy() const
{
    return new dgTextFontSlot(*this);
}
