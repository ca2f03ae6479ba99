#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define UT_EXPORT AP_SYMBOL_EXPORT
#else
#define UT_EXPORT AP_SYMBOL_IMPORT
#endif
