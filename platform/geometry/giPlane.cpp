#include "giPlane.h"

giPlane::giPlane(const giPoint3& point, const giVector3& normal) : m_point(point), m_normal(normal.unit()) {}
