#pragma once

#include "apExport.h"

#if defined(gr_display_EXPORTS)
#define CO_EXPORT AP_SYMBOL_EXPORT
#else
#define CO_EXPORT AP_SYMBOL_IMPORT
#endif
