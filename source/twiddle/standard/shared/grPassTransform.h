#pragma once

#include "dgTransform.h"
#include "dgWorldTransform.h"
#include "giXform3.h"
#include "utTypeID.h"

/// Lets an element of a structure change the transform in force for those after it. False if it is no transform of
/// either kind: in_force stays.
inline bool gr_pass_transform(dgGraphicalElement* element, giXform3& in_force)
{
    if (const dgTransform* transform = ut_cast<dgTransform>(element))
    {
        in_force = transform->transform() * in_force;
        return true;
    }
    if (const dgWorldTransform* world = ut_cast<dgWorldTransform>(element))
    {
        in_force = world->transform();
        return true;
    }
    return false;
}
