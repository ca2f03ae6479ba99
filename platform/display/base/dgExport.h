#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define DG_EXPORT AP_SYMBOL_EXPORT
#else
#define DG_EXPORT AP_SYMBOL_IMPORT
#endif
