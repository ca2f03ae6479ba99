#include "dgGLClusters.h"

#include "dgGLGeometryStore.h"
#include "dgGraphicalPrimitive.h"
#include "dgTriangleOrder.h"
#include "giPoint3.h"
#include "giTriangle.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr unsigned chunk = dgGLGeometryStore::chunk_triangles;
constexpr int least_features = 2 * chunk;

// Large triangles stand in the order of their areas, not of their places: few of them are put together.
constexpr unsigned large_in_cluster = 16;

dgFeatureClusters clusters_of(const dgGraphicalPrimitive& primitive, const dgGeometry& geometry)
{
    const auto npoints = static_cast<unsigned>(geometry.npoints),
               ntriangles = static_cast<unsigned>(geometry.nfeatures);
    dgFeatureClusters clusters;
    std::vector<giBox3> boxes;
    giBox3 box;
    int stored = 0;
    const auto add = [&](unsigned triangle)
    {
        for (int corner = 0; corner < 3 && npoints; ++corner)
        {
            const auto node = static_cast<unsigned>(geometry.triangles[triangle][corner]);
            box.merge(geometry.points[node < npoints ? node : 0]);
        }
        ++stored;
    };
    const auto close = [&]
    {
        if (clusters.starts.back() == stored)
            return;
        clusters.starts.push_back(stored);
        boxes.push_back(std::exchange(box, giBox3()));
    };
    clusters.starts.push_back(0);
    std::vector<unsigned> large = primitive.large_triangles();
    for (unsigned i = 0; i < large.size(); ++i)
    {
        add(large[i]);
        if ((i + 1) % large_in_cluster == 0)
            close();
    }
    close();
    dg_add_others(std::move(large), ntriangles, chunk, add, close);
    clusters.tree = dgBoxTree(std::move(boxes));
    return clusters;
}
}

const dgFeatureClusters* dgGLClusters::find(const dgGraphicalPrimitive& primitive)
{
    const dgGeometry geometry = primitive.geometry();
    if (geometry.topology != dgTOPOLOGY_TRIANGLES || geometry.nfeatures < least_features)
        return nullptr;
    Entry& entry = the_clusters[primitive.geometry_id()];
    if (entry.stamp != primitive.stamp())
    {
        entry.clusters = clusters_of(primitive, geometry);
        entry.stamp = primitive.stamp();
    }
    return &entry.clusters;
}
