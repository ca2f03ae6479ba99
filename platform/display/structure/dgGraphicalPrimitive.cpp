#include "dgGraphicalPrimitive.h"

#include "dgFeatureTree.h"
#include "dgGeometryListener.h"
#include "dgRenderer.h"
#include "dgTriangleOrder.h"
#include "giBox3.h"

#include <vector>

UT_DEFINE_TYPE(dgGraphicalPrimitive, dgGraphicalElement);

namespace
{
struct GeometryIds
{
    std::vector<unsigned> free;
    unsigned last = 0;
};

GeometryIds& geometry_ids()
{
    static auto* const ids = new GeometryIds; // primitives held by static objects may outlive any static here
    return *ids;
}
}

dgGraphicalPrimitive::dgGraphicalPrimitive(int type) : dgGraphicalElement(dgELEMENT_PRIMITIVE, type) {}

dgGraphicalPrimitive::dgGraphicalPrimitive(const dgGraphicalPrimitive& other) : dgGraphicalElement(other) {}

dgGraphicalPrimitive::~dgGraphicalPrimitive()
{
    if (!the_geometry_id)
        return;
    dgGeometryListener::tell_released(the_geometry_id);
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

const dgFeatureTree& dgGraphicalPrimitive::feature_tree() const
{
    if (!the_feature_tree)
        the_feature_tree = std::make_unique<dgFeatureTree>(geometry());
    return *the_feature_tree;
}

void dgGraphicalPrimitive::forget()
{
    the_feature_tree.reset();
    the_large_count = -1;
}

std::vector<unsigned> dgGraphicalPrimitive::large_triangles() const
{
    std::vector<unsigned> large = dg_large_triangles(geometry());
    the_large_count = static_cast<int>(large.size());
    return large;
}

int dgGraphicalPrimitive::large_triangle_count() const
{
    return the_large_count < 0 ? static_cast<int>(large_triangles().size()) : the_large_count;
}

giBox3 dgGraphicalPrimitive::bounding_box() const
{
    const dgGeometry shape = geometry();
    giBox3 box;
    for (int i = 0; i < shape.npoints; ++i)
        box.merge(shape.points[i]);
    return box;
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
