#pragma once

#include "dgExport.h"

/// Called with each error code. Must return; it may be called from inside reference counting.
using dgSerrHandler = void (*)(int code);

/// Reports a misuse of the display library, such as a reference count that fell below zero (110). By default the
/// code is printed on standard error. Never throws.
DG_EXPORT void dgSerr(int code);

/// Replaces the handler and returns the one before; null puts the default back.
DG_EXPORT dgSerrHandler dgSerr_handler(dgSerrHandler handler);

/// Has a handler called that gets data with each code, in place of any other; null puts the default back.
DG_EXPORT void dgSerr_handler(void (*handler)(int code, void* data), void* data);
