#pragma once

#include "giPlane.h"
#include "grTriCutter.h"

/// A plane that cuts triangle blocks; its positive side is the one that the normal points to.
class GR_EXPORT grTriCutterPlane : public grTriCutter
{
public:
    /// The tolerance is in model units.
    grTriCutterPlane(const giPlane& plane, double tolerance) : grTriCutter(tolerance), the_plane(plane) {}

    const giPlane& plane() const { return the_plane; }

    /// On the plane when nearer than the tolerance, which is strict: with tolerance 0 no point is, and those in the
    /// plane count as negative. So do points that are no numbers.
    grZone zone_node(const giPoint3& p) const override;
    /// As gsTriUtils::intersect.
    void intersect_edge(const giPoint3& p, const giPoint3& q, double distance_tolerance,
                        const giAngle& angular_tolerance, int& status, double& t, giPoint3& point) const override;

    UT_DECLARE_TYPE(grTriCutterPlane, grTriCutter);

private:
    giPlane the_plane;
};
