#include "dgPickHits.h"

void dgPickHits::add(const dgGraphicalElement& primitive, int feature, const giPoint3& point, double depth,
                     double distance)
{
    dgPickHit& hit = found.emplace_back();
    for (const dgGraphicalElement* call : calls)
        hit.path.emplace_back(const_cast<dgGraphicalElement*>(call));
    hit.path.emplace_back(const_cast<dgGraphicalElement*>(&primitive));
    hit.feature = feature;
    hit.point = point;
    hit.depth = depth;
    hit.distance = distance;
}
