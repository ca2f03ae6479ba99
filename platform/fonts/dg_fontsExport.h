#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define DG_FONTS_EXPORT AP_SYMBOL_EXPORT
#else
#define DG_FONTS_EXPORT AP_SYMBOL_IMPORT
#endif
