#pragma once

#include "dgGraphicalAttribute.h"
#include "giXform3.h"

/// Places what follows straight in world space, in place of all transforms in force: flattened structures use it, which
/// have no calls.
class DG_EXPORT dgWorldTransform : public dgGraphicalAttribute
{
public:
    explicit dgWorldTransform(const giXform3& transform)
        : dgGraphicalAttribute(dgTYPE_WORLD_TRANSFORM), the_transform(transform)
    {}

    const giXform3& transform() const { return the_transform; }

    bool changes_bounds() const override { return true; }
    dgWorldTransform* copy() const override;

    UT_DECLARE_TYPE(dgWorldTransform, dgGraphicalElement);

protected:
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    giXform3 the_transform;
};
