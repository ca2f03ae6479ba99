#include "grIdleAction.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grIdleAction action)
{
    switch (action)
    {
    case grIDLE_DONE: return os << "grIDLE_DONE";
    case grIDLE_AGAIN: return os << "grIDLE_AGAIN";
    }
    return os << "Unknown value for grIdleAction";
}
