#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define GW_EXPORT AP_SYMBOL_EXPORT
#else
#define GW_EXPORT AP_SYMBOL_IMPORT
#endif
