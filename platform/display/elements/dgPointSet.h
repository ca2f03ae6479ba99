#pragma once

#include "dgGraphicalPrimitive.h"
#include "giPoint3.h"

#include <vector>

/// Points drawn as markers.
class DG_EXPORT dgPointSet : public dgGraphicalPrimitive
{
public:
    explicit dgPointSet(std::vector<giPoint3> points);

    int count() const { return static_cast<int>(the_points.size()); }
    const giPoint3& point(int i) const { return the_points[i]; }

    dgPointSet* copy() const override;
    dgGraphicalPrimitiveType primitive_type() const override { return dgPRIMITIVE_MARKERS; }
    dgGeometry geometry() const override;

    UT_DECLARE_TYPE(dgPointSet, dgGraphicalElement);

private:
    std::vector<giPoint3> the_points;
};
