#include "dgEnums.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, dgReferenceMode mode)
{
    switch (mode)
    {
    case dgREFERENCE_COUNTED: return os << "dgREFERENCE_COUNTED";
    case dgREFERENCE_NONE: return os << "dgREFERENCE_NONE";
    }
    return os << "Unknown value for dgReferenceMode";
}
