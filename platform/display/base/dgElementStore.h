#pragma once

#include "dgEnums.h"

/// Number of element type codes.
class dgElementStore
{
public:
    int max_elements() const { return dgNUMBER_OF_TYPES; }
};
