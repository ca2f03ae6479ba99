#include "grViewFrame.h"

#include "giBox3.h"
#include "giXform3.h"

#include <cmath>

bool gr_view_frame(const giVector3& direction, const giPoint3& middle, giXform3& xform)
{
    const giVector3 z = direction.unit();
    if (!(std::abs(z.length() - 1) < 0.5))
        return false;
    const giVector3 up = std::abs(z.y()) < 0.9 ? giVector3(0, 1, 0) : giVector3(0, 0, z.y() < 0 ? 1 : -1);
    const giVector3 x = up.cross(z).unit(), y = z.cross(x);
    xform = giXform3::translation(-middle.vector()) *
            giXform3({x.x(), y.x(), z.x(), 0, x.y(), y.y(), z.y(), 0, x.z(), y.z(), z.z(), 0, 0, 0, 0, 1});
    return true;
}

bool gr_is_finite(const giBox3& box)
{
    // The diagonal of very large coordinates can overflow as well, and could not be drawn.
    return !box.empty() && std::isfinite(box.diagonal().length()) && std::isfinite(box.middle().vector().length());
}
