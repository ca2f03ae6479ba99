#include "gwTypes.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, gwKeyType type)
{
    switch (type)
    {
    case gwQWERTY_KEY: return os << "gwQWERTY_KEY";
    case gwFUNCTION_KEY: return os << "gwFUNCTION_KEY";
    case gwMOUSE_BUTTON: return os << "gwMOUSE_BUTTON";
    case gwOTHER_KEY: return os << "gwOTHER_KEY";
    case gwSPACEBALL_BUTTON: return os << "gwSPACEBALL_BUTTON";
    case gwMOUSE_WHEEL: return os << "gwMOUSE_WHEEL";
    case gwMOUSE_CLICK: return os << "gwMOUSE_CLICK";
    case gwMOUSE_DOUBLE_CLICK: return os << "gwMOUSE_DOUBLE_CLICK";
    }
    return os << "Unknown value for gwKeyType";
}

std::ostream& operator<<(std::ostream& os, gwDisplayBufferMode mode)
{
    switch (mode)
    {
    case gwSINGLE_BUFFER: return os << "gwSINGLE_BUFFER";
    case gwDOUBLE_BUFFER: return os << "gwDOUBLE_BUFFER";
    case gwTWIN_BUFFER: return os << "gwTWIN_BUFFER";
    }
    return os << "Unknown value for gwDisplayBufferMode";
}

std::ostream& operator<<(std::ostream& os, gwDriverType type)
{
    switch (type)
    {
    case gwGL_DRIVER: return os << "gwGL_DRIVER";
    case gwX_DRIVER: return os << "gwX_DRIVER";
    case gwNATIVE_DRIVER: return os << "gwNATIVE_DRIVER";
    case gwGDI_DRIVER: return os << "gwGDI_DRIVER";
    case gwPEX_DRIVER: return os << "gwPEX_DRIVER";
    case gwX_ON_UNIX_DRIVER: return os << "gwX_ON_UNIX_DRIVER";
    }
    return os << "Unknown value for gwDriverType";
}
