#include "grFastDrawMethod.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grFastDrawMethod method)
{
    switch (method)
    {
    case grFAST_DRAW_ALL: return os << "grFAST_DRAW_ALL";
    case grFAST_DRAW_SHARE: return os << "grFAST_DRAW_SHARE";
    }
    return os << "Unknown value for grFastDrawMethod";
}
