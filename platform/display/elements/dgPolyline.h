#pragma once

#include "dgGraphicalPrimitive.h"
#include "giPoint3.h"

#include <vector>

/// Straight lines joining successive points.
class DG_EXPORT dgPolyline : public dgGraphicalPrimitive
{
public:
    dgPolyline() : dgGraphicalPrimitive(dgTYPE_POLYLINE) {}
    explicit dgPolyline(std::vector<giPoint3> points);

    int count() const { return static_cast<int>(the_points.size()); }
    const giPoint3& point(int i) const { return the_points[i]; }

    /// Appends a point.
    void add(const giPoint3& point);

    /// Replaces all points.
    void points(std::vector<giPoint3> points);

    dgPolyline* copy() const override;
    dgGraphicalPrimitiveType primitive_type() const override { return dgPRIMITIVE_LINES; }
    dgGeometry geometry() const override;

    UT_DECLARE_TYPE(dgPolyline, dgGraphicalElement);

private:
    std::vector<giPoint3> the_points;
};
