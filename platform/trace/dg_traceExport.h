#pragma once

#include "apExport.h"

#if defined(gr_trace_EXPORTS)
#define DG_TRACE_EXPORT AP_SYMBOL_EXPORT
#else
#define DG_TRACE_EXPORT AP_SYMBOL_IMPORT
#endif
