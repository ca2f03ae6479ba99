#include "apThread.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

void ap_lower_thread_priority()
{
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST);
}

void ap_give_memory_back()
{
    // The heap of Windows does so by itself.
}
