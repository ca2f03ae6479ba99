#pragma once

#include "dgFeatureClusters.h"
#include "dgGeometryListener.h"
#include "dg_openglExport.h"

#include <unordered_map>

class dgGraphicalPrimitive;

/// Where the chunks lie in which the geometry store keeps the triangles of large blocks. Made for a block when it is
/// first partly in view after a change, or turned; takes a quarter of a byte a triangle.
class DG_OPENGL_EXPORT dgGLClusters : public dgGeometryListener
{
public:
    /// The clusters of a block as it is now, good until it changes; null for one that is small or no block.
    const dgFeatureClusters* find(const dgGraphicalPrimitive& primitive);

    void geometry_released(unsigned geometry_id) override { the_clusters.erase(geometry_id); }

private:
    struct Entry
    {
        unsigned long long stamp = 0;
        dgFeatureClusters clusters;
    };
    std::unordered_map<unsigned, Entry> the_clusters; // by geometry number
};
