#include "dgAppElement.h"
#include "dgCameraIndex.h"
#include "dgLabel.h"
#include "dgPointSet.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgStructure.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgWorldTransform.h"

#include "giBox3.h"
#include "giTriBlock.h"

#include <utility>

UT_DEFINE_TYPE(dgPolyline, dgGraphicalPrimitive);
UT_DEFINE_TYPE(dgPointSet, dgGraphicalPrimitive);
UT_DEFINE_TYPE(dgTriangleBlock, dgGraphicalPrimitive);
UT_DEFINE_TYPE(dgAppElement, dgGraphicalElement);
UT_DEFINE_TYPE(dgLabel, dgGraphicalElement);
UT_DEFINE_TYPE(dgStructureCall, dgGraphicalElement);
UT_DEFINE_TYPE(dgTransform, dgGraphicalAttribute);
UT_DEFINE_TYPE(dgWorldTransform, dgGraphicalAttribute);
UT_DEFINE_TYPE(dgCameraIndex, dgGraphicalElement);

namespace
{
giBox3 box_of(const std::vector<giPoint3>& points)
{
    giBox3 box;
    for (const giPoint3& point : points)
        box.merge(point);
    return box;
}
}

dgPolyline::dgPolyline(std::vector<giPoint3> points)
    : dgGraphicalPrimitive(dgTYPE_POLYLINE), the_points(std::move(points))
{}

void dgPolyline::add(const giPoint3& point)
{
    the_points.push_back(point);
    changed();
}

void dgPolyline::points(std::vector<giPoint3> points)
{
    the_points = std::move(points);
    changed();
}

dgPolyline* dgPolyline::copy() const
{
    return new dgPolyline(*this);
}

dgGeometry dgPolyline::geometry() const
{
    dgGeometry geometry;
    geometry.topology = dgTOPOLOGY_LINES;
    geometry.points = the_points.data();
    geometry.npoints = count();
    geometry.nfeatures = count() > 0 ? count() - 1 : 0;
    return geometry;
}

giBox3 dgPolyline::bounding_box() const
{
    return box_of(the_points);
}

dgPointSet::dgPointSet(std::vector<giPoint3> points)
    : dgGraphicalPrimitive(dgTYPE_POINT_SET), the_points(std::move(points))
{}

dgPointSet* dgPointSet::copy() const
{
    return new dgPointSet(*this);
}

dgGeometry dgPointSet::geometry() const
{
    dgGeometry geometry;
    geometry.topology = dgTOPOLOGY_POINTS;
    geometry.points = the_points.data();
    geometry.npoints = count();
    geometry.nfeatures = count();
    return geometry;
}

giBox3 dgPointSet::bounding_box() const
{
    return box_of(the_points);
}

dgTriangleBlock::dgTriangleBlock(giTriBlock* block, int owns)
    : dgGraphicalPrimitive(dgTYPE_TRIANGLE_BLOCK), the_block(block), the_block_owned(owns)
{}

dgTriangleBlock::~dgTriangleBlock()
{
    if (the_block_owned)
        delete the_block;
}

int dgTriangleBlock::triangle_count() const
{
    return the_block->triangle_count();
}

dgGeometry dgTriangleBlock::geometry() const
{
    dgGeometry geometry;
    geometry.topology = dgTOPOLOGY_TRIANGLES;
    geometry.points = the_block->nodes().data();
    geometry.npoints = the_block->node_count();
    if (const auto* normals = the_block->normals())
        geometry.normals = normals->data();
    geometry.triangles = the_block->triangles().data();
    geometry.nfeatures = the_block->triangle_count();
    return geometry;
}

giBox3 dgTriangleBlock::bounding_box() const
{
    return the_block->box();
}

dgTriangleBlock* dgTriangleBlock::copy() const
{
    return new dgTriangleBlock(new giTriBlock(*the_block), 1);
}

dgLabel* dgLabel::copy() const
{
    return new dgLabel(*this);
}

dgStructureCall::dgStructureCall(dgStructure* structure)
    : dgGraphicalElement(dgELEMENT_OTHER, dgTYPE_STRUCTURE_CALL), the_structure(structure)
{}

dgStructureCall::~dgStructureCall() = default;

dgStructure* dgStructureCall::called_structure() const
{
    return the_structure.get();
}

dgStructureCall* dgStructureCall::copy() const
{
    return new dgStructureCall(*this);
}

void dgStructureCall::draw(dgRenderer* renderer) const
{
    if (the_structure)
        renderer->draw_structure(*the_structure);
}

void dgTransform::transform(const giXform3& transform)
{
    the_transform = transform;
    changed();
}

dgTransform* dgTransform::copy() const
{
    return new dgTransform(*this);
}

int dgTransform::equal_value(const dgGraphicalAttribute& other) const
{
    return the_transform == static_cast<const dgTransform&>(other).the_transform;
}

dgWorldTransform* dgWorldTransform::copy() const
{
    return new dgWorldTransform(*this);
}

int dgWorldTransform::equal_value(const dgGraphicalAttribute& other) const
{
    return the_transform == static_cast<const dgWorldTransform&>(other).the_transform;
}

dgCameraIndex* dgCameraIndex::copy() const
{
    return new dgCameraIndex(*this);
}

void dgCameraIndex::draw(dgRenderer* renderer) const
{
    renderer->select_camera(the_index);
}
