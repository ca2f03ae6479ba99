#include "gr_pick.h"

#include "dgDriver.h"
#include "dgImage.h"
#include "dgLooks.h"
#include "dgPickAperture.h"
#include "dgRenderer.h"
#include "dgSelectedDriver.h"
#include "dgView.h"
#include "giBox2.h"
#include "giBox3.h"

#include <algorithm>
#include <map>
#include <utility>

namespace
{
bool is_surface(const dgPickHit& hit)
{
    return hit.primitive().type() == dgTYPE_TRIANGLE_BLOCK;
}

// Gives a view other looks for a while, and takes what may change colours away.
class IdentifierPicture
{
public:
    IdentifierPicture(dgView& view, dgLooks& looks)
        : the_view(view), the_looks(view.looks()), the_cueing(view.renderer()->depth_cueing())
    {
        view.looks(&looks);
        view.renderer()->depth_cueing(0);
    }
    ~IdentifierPicture()
    {
        the_view.looks(the_looks.get());
        the_view.renderer()->depth_cueing(the_cueing);
        the_view.picture_is_lost();
    }
    IdentifierPicture(const IdentifierPicture&) = delete;
    IdentifierPicture& operator=(const IdentifierPicture&) = delete;

private:
    dgView& the_view;
    dgRef<dgLooks> the_looks;
    int the_cueing;
};

using Key = std::vector<const dgGraphicalElement*>;

Key key_of(const dgElementPath& path)
{
    Key key;
    for (const auto& element : path)
        key.push_back(element.get());
    return key;
}

// Leaves the hits of parts that show a pixel, found by a picture in which each has a colour of its own.
void keep_seen(dgView& view, const giBox2& box, std::vector<dgPickHit>& hits)
{
    const dgRef<dgLooks> looks(new dgLooks);
    std::map<Key, unsigned> numbers;
    std::vector<dgElementPath> paths;
    for (const dgPickHit& hit : hits)
    {
        const auto [entry, is_new] = numbers.try_emplace(key_of(hit.path), static_cast<unsigned>(paths.size() + 1));
        if (!is_new)
            continue;
        paths.push_back(hit.path);
        const unsigned number = entry->second;
        const auto channel = [&](int shift) { return (number >> shift & 255) / 255.0; };
        dgLook look;
        look.coloured = look.unlit = 1;
        look.colour = gsColour(channel(0), channel(8), channel(16));
        looks->set(hit.path, look);
    }
    looks->isolate(paths);
    dgImage image;
    {
        dgRenderer& renderer = *view.renderer();
        const dgSelectedDriver main_driver(renderer, 0); // tools may have drawn on an overlay
        const IdentifierPicture picture(view, *looks);
        renderer.select_buffer(dgBACK_BUFFER);
        renderer.clip(box);
        const dgViewShadingContext shading = view.shading_context();
        view.shading_context().graduated_background = 0;
        view.shading_context().background_colour = gsColour(0, 0, 0);
        // Nothing else is to be drawn with it: behind the cap of a section lies the part that it belongs to.
        view.erase(dgERASE_ZBUFFER_NO);
        renderer.driver()->erase_area(box, gsColour(0, 0, 0), dgERASE_FRAMEBUFFER_NO, dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        view.shading_context() = shading;
        renderer.read_pixels(box, image);
        renderer.clip(giBox2());
        renderer.select_buffer(dgFRONT_BUFFER);
    }
    std::vector<char> seen(paths.size() + 1, 0);
    for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4)
    {
        const std::size_t number = image.rgba[i] | image.rgba[i + 1] << 8 | image.rgba[i + 2] << 16;
        if (number < seen.size())
            seen[number] = 1;
    }
    std::erase_if(hits, [&](const dgPickHit& hit) { return !seen[numbers[key_of(hit.path)]]; });
}
}

std::vector<dgPickHit> gr_pick(const dgView& view, const giPoint2& position, grPickDepth depth, grPickUnit unit,
                               double reach)
{
    giBox2 box(position.x(), position.y(), position.x(), position.y());
    box.grow(reach);
    std::vector<dgPickHit> hits = view.pick_hits(dgPickAperture(box), unit == grPICK_FEATURES);
    std::erase_if(hits, [&](const dgPickHit& hit) { return hit.distance > (is_surface(hit) ? 0 : reach); });
    if (depth == grPICK_ALL || hits.size() < 2)
        return hits;
    // A line on a surface lies a little behind it as often as before it: by how much the surface may fall away within
    // reach.
    const double slack = 4 * reach / view.camera().pixels_per_unit();
    const auto before = [&](const dgPickHit& hit) { return hit.depth + (is_surface(hit) ? 0 : slack); };
    const auto front = std::max_element(hits.begin(), hits.end(),
                                        [&](const dgPickHit& a, const dgPickHit& b) { return before(a) < before(b); });
    return {std::move(*front)};
}

std::vector<dgPickHit> gr_pick_box(dgView& view, const giBox2& device_box, grPickDepth depth, grPickUnit unit)
{
    giBox2 box;
    box.merge(device_box.low());
    box.merge(device_box.high());
    box = box.intersection(view.camera().view_port_dc());
    if (box.empty() || !view.renderer())
        return {};
    std::vector<dgPickHit> hits = view.pick_hits(dgPickAperture(box), unit == grPICK_FEATURES);
    if (depth == grPICK_FRONT && !hits.empty())
        keep_seen(view, box, hits);
    return hits;
}
