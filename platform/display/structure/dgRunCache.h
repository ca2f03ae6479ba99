#pragma once

#include "dgExport.h"

/// What a driver keeps beside a run; deleted with it.
class DG_EXPORT dgRunCache
{
public:
    virtual ~dgRunCache();
};
