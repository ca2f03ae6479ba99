#include "dgPointSet.h"

#include <utility>

UT_DEFINE_TYPE(dgPointSet, dgGraphicalPrimitive);

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
