#include "dgGeometryListener.h"

#include <vector>

namespace
{
std::vector<dgGeometryListener*>& listeners()
{
    static auto* const all =
        new std::vector<dgGeometryListener*>; // primitives held by static objects outlive any static
    return *all;
}
}

dgGeometryListener::dgGeometryListener()
{
    listeners().push_back(this);
}

dgGeometryListener::~dgGeometryListener()
{
    std::erase(listeners(), this);
}

void dgGeometryListener::tell_released(unsigned geometry_id)
{
    for (dgGeometryListener* listener : listeners())
        listener->geometry_released(geometry_id);
}
