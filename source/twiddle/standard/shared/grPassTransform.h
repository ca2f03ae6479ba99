#pragma once

#include "dgTransform.h"
#include "dgWorldTransform.h"
#include "giXform3.h"
#include "utTypeID.h"

/// Lets an element of a structure change the transform in force for those after it: 1 if it is a transform, of either
/// kind, and 0 for any other element, which leaves in_force alone.
inline int gr_pass_transform(dgGraphicalElement* element, giXform3& in_force)
{
    if (const dgTransform* transform = ut_cast<dgTransform>(element))
    {
        in_force = transform->transform() * in_force;
        return 1;
    }
    if (const dgWorldTransform* world = ut_cast<dgWorldTransform>(element))
    {
        in_force = world->transform();
        return 1;
    }
    return 0;
}
