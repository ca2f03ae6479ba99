#include "giWorkplane3.h"

giWorkplane3::giWorkplane3(const giPoint3& origin, const giVector3& x_axis, const giVector3& y_axis)
    : m_origin(origin), m_x_axis(x_axis.unit()), m_y_axis((y_axis - m_x_axis * y_axis.dot(m_x_axis)).unit())
{}
