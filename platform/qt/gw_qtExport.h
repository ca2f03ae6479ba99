#pragma once

#include "apExport.h"

#if defined(gr_qt_EXPORTS)
#define GW_QT_EXPORT AP_SYMBOL_EXPORT
#else
#define GW_QT_EXPORT AP_SYMBOL_IMPORT
#endif
