#include "grPointSample.h"

#include "dgCamera.h"
#include "dgGraphicalPrimitive.h"
#include "dgNetworkWalk.h"
#include "dgView.h"
#include "dgViewVolume.h"
#include "giBox2.h"
#include "giBox3.h"

#include <algorithm>
#include <cstddef>

namespace
{
// A part that is shown is told within some hundredths of it.
constexpr std::size_t most_points = 4096;
}

grPointSample::grPointSample(const dgStructure& root)
{
    long long features = 0, next = 0;
    dg_walk_placed(root,
                   [&](const dgGraphicalElement& element, const giXform3& to_world)
                   {
                       if (element.kind() != dgELEMENT_PRIMITIVE)
                           return true;
                       const dgGeometry geometry = static_cast<const dgGraphicalPrimitive&>(element).geometry();
                       const long long start = features;
                       features += geometry.nfeatures;
                       if (!geometry.points)
                           return true;
                       for (; next < features; next += the_step)
                       {
                           // As far along the points as along the features.
                           const long long point = (next - start) * geometry.npoints / geometry.nfeatures;
                           the_points.push_back(geometry.points[point] * to_world);
                           if (the_points.size() == most_points)
                               thin();
                       }
                       return true;
                   });
}

// Every other point stays, and of what follows every other one is taken.
void grPointSample::thin()
{
    for (std::size_t i = 0; 2 * i < the_points.size(); ++i)
        the_points[i] = the_points[2 * i];
    the_points.resize((the_points.size() + 1) / 2);
    the_step *= 2;
}

double grPointSample::share_shown(const dgView& view) const
{
    if (the_points.empty())
        return 1;
    const dgCamera& camera = view.camera();
    dgViewVolume volume(camera.orientation() * camera.projection_transform(), giBox2(-1, -1, 1, 1),
                        view.user_clip_planes());
    if (const auto& section = camera.section())
        volume.cut(giXform3(), *section);
    const auto shown = std::count_if(the_points.begin(), the_points.end(),
                                     [&](const giPoint3& point) { return volume.test(giBox3(point, point)); });
    return std::max(static_cast<double>(shown), 0.5) / static_cast<double>(the_points.size());
}
