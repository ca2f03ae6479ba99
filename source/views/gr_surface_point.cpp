#include "gr_surface_point.h"

#include "dgPickAperture.h"
#include "dgPickHit.h"
#include "dgView.h"
#include "giBox2.h"

#include <algorithm>

int gr_surface_point(const dgView& view, const giPoint2& position, giPoint3& point)
{
    const std::vector<dgPickHit> hits = view.pick_hits(dgPickAperture(giBox2(position, position)));
    const auto nearest = std::find_if(hits.begin(), hits.end(),
                                      [](const dgPickHit& hit)
                                      { return hit.distance == 0 && hit.primitive().type() == dgTYPE_TRIANGLE_BLOCK; });
    if (nearest == hits.end())
        return 0;
    point = nearest->point;
    return 1;
}
