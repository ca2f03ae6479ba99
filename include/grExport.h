#pragma once

#include "apExport.h"

#if defined(gr_EXPORTS)
#define GR_EXPORT AP_SYMBOL_EXPORT
#else
#define GR_EXPORT AP_SYMBOL_IMPORT
#endif
