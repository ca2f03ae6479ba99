#include "apThread.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

void ap_lower_thread_priority()
{
    // On Linux nice values belong to threads. The weight of this one is about a third of the usual.
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), 5);
}

void ap_give_memory_back()
{
    malloc_trim(0);
}
