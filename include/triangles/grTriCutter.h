#pragma once

#include "grExport.h"
#include "grZone.h"
#include "utTypeID.h"

class giAngle;
class giPoint3;

/// A surface that cuts triangle blocks, for grTriCut.
class GR_EXPORT grTriCutter
{
public:
    /// Nodes nearer to the surface than the tolerance, in model units, count as lying on it.
    explicit grTriCutter(double tolerance) : the_tolerance(tolerance) {}
    grTriCutter(const grTriCutter&) = default;
    grTriCutter& operator=(const grTriCutter&) = default;

    /// Where a point lies.
    virtual grZone zone_node(const giPoint3& p) const = 0;
    /// Intersects the segment from p to q with the surface: with status not 0 they meet, at point, and at t from p (0)
    /// to q (1). With status 0, t and point mean nothing.
    virtual void intersect_edge(const giPoint3& p, const giPoint3& q, double distance_tolerance,
                                const giAngle& angular_tolerance, int& status, double& t, giPoint3& point) const = 0;
    virtual ~grTriCutter();

    double tolerance() const { return the_tolerance; }

    UT_DECLARE_ROOT_TYPE(grTriCutter);

private:
    double the_tolerance;
};
