#include "grTriCutterPlane.h"

#include "gsTriUtils.h"
#include "utTypeID.h"

#include <cmath>

grZone grTriCutterPlane::zone_node(const giPoint3& p) const
{
    const double distance = the_plane.distance(p);
    if (std::abs(distance) < tolerance())
        return grON_ZONE;
    return distance > 0 ? grPOSITIVE_ZONE : grNEGATIVE_ZONE;
}

void grTriCutterPlane::intersect_edge(const giPoint3& p, const giPoint3& q, double distance_tolerance,
                                      const giAngle& angular_tolerance, int& status, double& t, giPoint3& point) const
{
    gsTriUtils::intersect(p, q, the_plane, distance_tolerance, angular_tolerance, status, t, point);
}

UT_DEFINE_TYPE(grTriCutterPlane, grTriCutter);
