#include "giWorkplane3.h"

#include <cmath>

namespace
{
// Some direction in a plane.
giVector3 along(const giPlane& plane)
{
    const giVector3& normal = plane.normal();
    return (std::abs(normal.x()) < 0.5 ? giVector3(1, 0, 0) : giVector3(0, 1, 0)).cross(normal);
}
}

giWorkplane3::giWorkplane3(const giPoint3& origin, const giVector3& x_axis, const giVector3& y_axis)
    : m_origin(origin), m_x_axis(x_axis.unit()), m_y_axis((y_axis - m_x_axis * y_axis.dot(m_x_axis)).unit())
{}

giWorkplane3::giWorkplane3(const giPlane& plane)
    : giWorkplane3(plane.point(), along(plane), plane.normal().cross(along(plane)))
{}
