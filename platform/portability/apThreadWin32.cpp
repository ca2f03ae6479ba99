#include "apThread.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

void ap_lower_thread_priority()
{
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST);
}
