#include "gsHeap.h"

#include <unordered_set>

namespace
{
std::unordered_set<const dgBase*>& live_objects()
{
    static auto* const objects =
        new std::unordered_set<const dgBase*>; // outlives every static object that reports here
    return *objects;
}
}

void gsHeap::object_add(const dgBase* object)
{
    live_objects().insert(object);
}

void gsHeap::object_remove(const dgBase* object)
{
    live_objects().erase(object);
}

int gsHeap::object_count()
{
    return static_cast<int>(live_objects().size());
}

void gsHeap::for_each_object(void (*visit)(const dgBase*, void*), void* data)
{
    for (const dgBase* object : live_objects())
        visit(object, data);
}
