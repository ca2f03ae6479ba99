#include "dgGraphicalPrimitive.h"

#include "dgRenderer.h"

#include <algorithm>
#include <vector>

UT_DEFINE_TYPE(dgGraphicalPrimitive, dgGraphicalElement);

namespace
{
struct GeometryIds
{
    std::vector<unsigned> free;
    unsigned last = 0;
    std::vector<dgGeometryListener*> listeners;
};

GeometryIds& geometry_ids()
{
    static auto* const ids = new GeometryIds; // primitives held by static objects may outlive any static here
    return *ids;
}
}

dgGeometryListener::dgGeometryListener()
{
    geometry_ids().listeners.push_back(this);
}

dgGeometryListener::~dgGeometryListener()
{
    std::erase(geometry_ids().listeners, this);
}

dgGraphicalPrimitive::~dgGraphicalPrimitive()
{
    if (!the_geometry_id)
        return;
    for (dgGeometryListener* listener : geometry_ids().listeners)
        listener->geometry_released(the_geometry_id);
    geometry_ids().free.push_back(the_geometry_id);
}

unsigned dgGraphicalPrimitive::geometry_id() const
{
    if (the_geometry_id)
        return the_geometry_id;
    GeometryIds& ids = geometry_ids();
    if (ids.free.empty())
    {
        the_geometry_id = ++ids.last;
    }
    else
    {
        the_geometry_id = ids.free.back();
        ids.free.pop_back();
    }
    return the_geometry_id;
}

int dgGraphicalPrimitive::category() const
{
    switch (type())
    {
    case 106:
    case 108: return dgTYPE_POLYLINE - dgTYPE_FIRST_PRIMITIVE;
    case 107:
    case 109: return dgTYPE_POINT_SET - dgTYPE_FIRST_PRIMITIVE;
    default: return type() - dgTYPE_FIRST_PRIMITIVE;
    }
}

void dgGraphicalPrimitive::draw(dgRenderer* renderer) const
{
    renderer->draw_primitive(*this);
}
