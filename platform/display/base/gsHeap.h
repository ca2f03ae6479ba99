#pragma once

#include "dgExport.h"

class dgBase;

/// Bookkeeping of live objects, for reports of what was left behind.
class DG_EXPORT gsHeap
{
public:
    gsHeap() = delete;

    static void object_add(const dgBase* object);
    static void object_remove(const dgBase* object);

    static int object_count();

    /// Calls visit for every live object, in no particular order.
    static void for_each_object(void (*visit)(const dgBase* object, void* data), void* data);
};
