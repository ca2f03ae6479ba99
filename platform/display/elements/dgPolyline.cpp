#include "dgPolyline.h"

#include <utility>

UT_DEFINE_TYPE(dgPolyline, dgGraphicalPrimitive);

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
