#pragma once

#include "apExport.h"

/// Gives the calling thread a smaller part of the processor as long as others want it: for work that nobody waits for.
AP_EXPORT void ap_lower_thread_priority();
