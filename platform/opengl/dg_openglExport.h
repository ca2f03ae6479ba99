#pragma once

#include "apExport.h"

#if defined(gr_opengl_EXPORTS)
#define DG_OPENGL_EXPORT AP_SYMBOL_EXPORT
#else
#define DG_OPENGL_EXPORT AP_SYMBOL_IMPORT
#endif
