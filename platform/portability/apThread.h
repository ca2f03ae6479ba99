#pragma once

#include "apExport.h"

/// Gives the calling thread a smaller part of the processor as long as others want it: for work that nobody waits for.
AP_EXPORT void ap_lower_thread_priority();

/// Hands memory that was freed, but is kept for further use, back to the system: after work that has taken much of it.
AP_EXPORT void ap_give_memory_back();
