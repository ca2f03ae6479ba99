#include "gsHeap.h"

#include "dgBase.h"

#include <map>
#include <ostream>
#include <string>
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

void gsHeap::print(std::ostream& os)
{
    std::map<std::string, int> numbers;
    for (const dgBase* object : live_objects())
        ++numbers[object->ut_dynamic_type().name()];
    os << object_count() << " live objects\n";
    for (const auto& [name, number] : numbers)
        os << "  " << name << " " << number << "\n";
}
