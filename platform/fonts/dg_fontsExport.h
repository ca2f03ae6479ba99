#pragma once

#include "apExport.h"

#if defined(dg_fonts_EXPORTS)
#define DG_FONTS_EXPORT AP_SYMBOL_EXPORT
#else
#define DG_FONTS_EXPORT AP_SYMBOL_IMPORT
#endif
