#pragma once

#include "giPoint3.h"
#include "giVector3.h"

/// A plane in world space that tools may turn views about; switched on by default.
class grWorkPlane
{
public:
    grWorkPlane() = default;
    /// normal need not be a unit vector, but must not be null.
    grWorkPlane(const giPoint3& origin, const giVector3& normal) : the_origin(origin), the_normal(normal.unit()) {}

    /// A plane that is switched off is left out of account by every tool.
    int on() const { return the_on; }
    void on(int on) { the_on = on; }

    const giPoint3& origin() const { return the_origin; }
    void origin(const giPoint3& origin_world) { the_origin = origin_world; }

    /// Unit vector.
    const giVector3& normal() const { return the_normal; }
    void normal(const giVector3& normal_world) { the_normal = normal_world.unit(); }

private:
    int the_on = 1;
    giPoint3 the_origin;
    giVector3 the_normal{0, 0, 1};
};
