#include "grNetworkSample.h"

#include "dgCamera.h"
#include "dgGraphicalPrimitive.h"
#include "dgNetworkWalk.h"
#include "dgView.h"
#include "dgViewVolume.h"
#include "giBox2.h"

#include <algorithm>
#include <cstddef>

namespace
{
// A part that is shown is told within some hundredths of it.
constexpr std::size_t most_boxes = 4096;
}

grNetworkSample::grNetworkSample(const dgStructure& root, Culling culling)
{
    long long features = 0, next = 0;
    dg_walk_placed(root,
                   [&](const dgGraphicalElement& element, const giXform3& to_world)
                   {
                       if (element.kind() != dgELEMENT_PRIMITIVE)
                           return true;
                       const auto& primitive = static_cast<const dgGraphicalPrimitive&>(element);
                       const dgGeometry geometry = primitive.geometry();
                       const long long start = features;
                       features += geometry.nfeatures;
                       for (; next < features; next += the_step)
                       {
                           giBox3 box;
                           if (culling == BY_FEATURE && geometry.npoints > 0)
                           {
                               // As far along the points as along the features.
                               const long long point = (next - start) * geometry.npoints / geometry.nfeatures;
                               box.merge(geometry.points[point] * to_world);
                           }
                           else if (culling == BY_ELEMENT && primitive.type() == dgTYPE_TRIANGLE_BLOCK)
                               box = primitive.bounding_box().transform(to_world);
                           if (the_boxes.size() == most_boxes)
                               thin();
                           the_boxes.push_back(box);
                       }
                       return true;
                   });
}

// Every other one stays, and of what follows, from the next on, every other one is taken.
void grNetworkSample::thin()
{
    for (std::size_t i = 0; 2 * i < the_boxes.size(); ++i)
        the_boxes[i] = the_boxes[2 * i];
    the_boxes.resize(the_boxes.size() / 2);
    the_step *= 2;
}

double grNetworkSample::share_shown(const dgView& view) const
{
    if (the_boxes.empty())
        return 1;
    const dgCamera& camera = view.camera();
    dgViewVolume volume(camera.orientation() * camera.projection_transform(), giBox2(-1, -1, 1, 1),
                        view.user_clip_planes());
    if (const auto& section = camera.section())
        volume.cut(giXform3(), *section);
    const auto shown = std::count_if(the_boxes.begin(), the_boxes.end(),
                                     [&](const giBox3& box) { return box.empty() || volume.test(box); });
    return std::max(static_cast<double>(shown), 0.5) / static_cast<double>(the_boxes.size());
}
