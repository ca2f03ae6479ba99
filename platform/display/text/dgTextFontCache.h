#pragma once

#include "dgExport.h"

/// What a driver keeps beside a font; deleted with it.
class DG_EXPORT dgTextFontCache
{
public:
    virtual ~dgTextFontCache();
};
