#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define GI_EXPORT AP_SYMBOL_EXPORT
#else
#define GI_EXPORT AP_SYMBOL_IMPORT
#endif
