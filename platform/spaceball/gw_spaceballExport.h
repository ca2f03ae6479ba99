#pragma once

#include "apExport.h"

#if defined(gr_glfw_EXPORTS)
#define GW_SPACEBALL_EXPORT AP_SYMBOL_EXPORT
#else
#define GW_SPACEBALL_EXPORT AP_SYMBOL_IMPORT
#endif
