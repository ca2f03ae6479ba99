#include "grSplitter.h"

#include "grDiagSplitter.h"
#include "grIdImage.h"
#include "grSelfHider.h"
#include "grSplitBlock.h"
#include "grSplitUtils.h"
#include "grSplitZones.h"
#include "grSplitZonesIterator.h"
#include "grViewFrame.h"

#include "dgImage.h"
#include "giTriBlock.h"
#include "giXform3.h"
#include "utTypeID.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <string>

namespace
{
constexpr int default_image_size = 1024;
constexpr int block_zoom_reduction = 2;
constexpr int point_zoom_reduction = 4;
constexpr double zone_pixels_per_block = 4000; // four times what the overview asks for
constexpr double most_zones = 256;
constexpr double point_zoom_thicknesses = 4; // width of a point zoom, in thicknesses of its triangle
constexpr double least_point_zoom = 1e-4;    // of the model's size: what single precision positions allow

// Where to look at a block closely: the middle of the triangle that shows most, and a box around it in which that
// triangle is some pixels thick.
giBox3 point_zoom_box(const giTriBlock& block, const giBox3& box, double least_size, giPoint3& point)
{
    double largest = -1, thickness = 0;
    for (const giTriangle& t : block.triangles())
    {
        const giPoint3 &a = block.nodes()[t[0]], &b = block.nodes()[t[1]], &c = block.nodes()[t[2]];
        const giVector3 normal = (b - a).cross(c - a);
        // Triangles on edge come after all others, the largest first.
        const double shows = std::abs(normal.z()) + 1e-9 * normal.length();
        if (!(shows > largest))
            continue;
        largest = shows;
        const auto flat_length = [](const giVector3& v) { return std::hypot(v.x(), v.y()); };
        const double longest = std::max({flat_length(b - a), flat_length(c - b), flat_length(a - c)});
        thickness = longest > 0 ? std::abs(normal.z()) / longest : 0;
        point = giPoint3((a.vector() + b.vector() + c.vector()) / 3);
    }
    const double most = std::max({box.width(), box.height(), least_size});
    const double size = thickness > 0 ? std::clamp(point_zoom_thicknesses * thickness, least_size, most) : most / 16;
    giBox3 zoom(point, point);
    zoom.grow(size / 2);
    return zoom;
}

// A split under way. Its steps answer whether the caller lets it go on.
class Run
{
public:
    Run(const grSplitterCallback& progress, grDiagSplitter* observer) : callback(progress), diagnostics(observer) {}

    void copy(const giTriBlockcoDList& originals);
    bool measure(dgWidgetWindow& window, int image_size);
    bool classify(const grBlockIdx& self_hiders, std::vector<grBlockVisClass>& classes);

    giTriBlockcoDList blocks; // in the frame of the direction
    std::vector<giBox3> boxes;

private:
    grSplitBlock& count(int block) { return counts[static_cast<std::size_t>(block)]; }
    const giBox3& box(int block) const { return boxes[static_cast<std::size_t>(block)]; }
    bool go_on(grSplitterProgressSection section, std::size_t done, std::size_t total) const
    {
        return !callback || callback(section, static_cast<int>(done), static_cast<int>(total)) != 0;
    }
    void show(const std::string& name, const dgImage& image) const
    {
        if (diagnostics)
            diagnostics->image(name, image);
    }

    // Blocks that cannot be seen in a box cannot hide anything in it.
    std::vector<int> blocks_over(const giBox3& box_seen) const
    {
        const giBox3 column(giPoint3(box_seen.low().x(), box_seen.low().y(), model_box.low().z()),
                            giPoint3(box_seen.high().x(), box_seen.high().y(), model_box.high().z()));
        std::vector<int> found;
        for (std::size_t i = 0; i < boxes.size(); ++i)
            if (boxes[i].overlap(column))
                found.push_back(static_cast<int>(i));
        return found;
    }

    struct ZoomCounts
    {
        int upper, lower, alone;
    };
    // Counts the pixels of one block in the image of a box.
    ZoomCounts zoom(const char* name, int block, const giBox3& seen, int reduction)
    {
        const bool wanted = diagnostics && diagnostics->is_interesting(block);
        const auto count_in = [&](const char* side, const std::vector<int>& drawn, grIdImageSense sense)
        {
            const dgImage& image = id_image.make_image(seen, drawn, sense, reduction);
            if (wanted)
                show(std::string(name) + side + std::to_string(block), image);
            id_image.count_pixels(image, upper);
            const int pixels = upper[block];
            for (const int other : drawn)
                upper[other] = 0;
            return pixels;
        };
        const std::vector<int> all = blocks_over(seen);
        const int from_above = count_in("upper_", all, grID_IMAGE_UPPER);
        const int from_below = count_in("lower_", all, grID_IMAGE_LOWER);
        return {from_above, from_below, count_in("alone_", {block}, grID_IMAGE_UPPER)};
    }

    void place_in_zones(int image_size);
    bool count_overview_pixels();
    bool count_point_zoom_pixels();
    bool count_block_zoom_pixels();

    std::vector<std::unique_ptr<giTriBlock>> owned_blocks;
    giBox3 model_box;
    std::vector<grSplitBlock> counts;
    std::vector<int> open; // blocks that the overview has not decided
    grIdImage id_image;
    std::optional<grSplitZones> zones;
    std::vector<std::vector<int>> zone_blocks;
    grPixelCountcoDynArr upper, lower, alone; // of the image in work, 0 between
    const grSplitterCallback& callback;
    grDiagSplitter* diagnostics;
};

// Copies are turned and moved, and not what the caller has.
void Run::copy(const giTriBlockcoDList& originals)
{
    for (const giTriBlock* block : originals)
    {
        owned_blocks.push_back(std::make_unique<giTriBlock>(*block));
        blocks.add_last(owned_blocks.back().get());
    }
}

// Counts the pixels of all blocks, and of those that the overview leaves open also in zooms.
bool Run::measure(dgWidgetWindow& window, int image_size)
{
    for (const giBox3& block_box : boxes)
    {
        model_box.merge(block_box);
        counts.emplace_back(static_cast<int>(counts.size()));
        counts.back().box(block_box);
    }
    if (model_box.empty())
        return true;
    place_in_zones(image_size);
    for (grPixelCountcoDynArr* pixels : {&upper, &lower, &alone})
        grSplitUtils::init(*pixels, blocks.count());
    if (!id_image.initialize(&window, image_size, image_size, blocks, model_box) || !count_overview_pixels())
        return false;
    for (int block = 0; block < blocks.count(); ++block)
        if (!box(block).empty() && count(block).point_zoom_test_pending())
            open.push_back(block);
    return count_point_zoom_pixels() && count_block_zoom_pixels();
}

void Run::place_in_zones(int image_size)
{
    const double pixels = static_cast<double>(image_size) * image_size;
    zones.emplace(model_box, std::min(most_zones, zone_pixels_per_block * blocks.count() / pixels));
    zone_blocks.resize(static_cast<std::size_t>(zones->num_zones()));
    for (int block = 0; block < blocks.count(); ++block)
    {
        int low = 0, high = 0;
        if (!zones->zone(box(block), low, high))
            continue;
        if (diagnostics)
            diagnostics->block_zones(block, low, high);
        for (grSplitZonesIterator it(*zones, low, high); it.valid(); it.next())
        {
            zone_blocks[static_cast<std::size_t>(it.zone())].push_back(block);
            count(block).add_pending_zone(it.zone());
        }
    }
}

bool Run::classify(const grBlockIdx& self_hiders, std::vector<grBlockVisClass>& classes)
{
    for (int block = 0; block < blocks.count(); ++block)
    {
        if (!go_on(grSPLITTER_CLASSIFY, static_cast<std::size_t>(block), counts.size()))
            return false;
        grBlockVisClass vis = grVIS_BOTH;
        grBlockDiagClass diag = grDIAG_NOT_CLASSIFIED;
        count(block).classified(vis, diag);
        if ((vis == grVIS_UPPER || vis == grVIS_LOWER) && self_hiders.contains(block))
        {
            vis = grVIS_BOTH;
            diag = grDIAG_SELF_HIDER;
        }
        if (diagnostics)
            diagnostics->classified(count(block), vis, diag);
        classes.push_back(vis);
    }
    return true;
}

bool Run::count_overview_pixels()
{
    const std::size_t n_zones = zone_blocks.size();
    for (std::size_t i = 0; i < n_zones; ++i)
    {
        if (!go_on(grSPLITTER_OVERVIEW, i, n_zones))
            return false;
        const std::vector<int>& in_zone = zone_blocks[i];
        if (in_zone.empty())
            continue;
        const int zone = static_cast<int>(i);
        const giBox3 zone_box = zones->zone_box(zone);
        const std::string number = n_zones > 1 ? "_" + std::to_string(zone) : "";
        const dgImage* image = &id_image.make_image(zone_box, in_zone, grID_IMAGE_UPPER);
        show("overview_upper" + number, *image);
        id_image.count_pixels(*image, upper);
        image = &id_image.make_image(zone_box, in_zone, grID_IMAGE_LOWER);
        show("overview_lower" + number, *image);
        id_image.count_pixels(*image, lower);
        id_image.count_alone(zone_box, in_zone, grID_IMAGE_UPPER, alone);
        for (const int block : in_zone)
            count(block).add_overview_counts(upper[block], lower[block], alone[block], zone);
        if (diagnostics)
            diagnostics->zone_counts(zone, in_zone, upper, lower, alone);
        for (const int block : in_zone)
            upper[block] = lower[block] = alone[block] = 0;
    }
    return go_on(grSPLITTER_OVERVIEW, n_zones, n_zones);
}

bool Run::count_point_zoom_pixels()
{
    const double least_size = least_point_zoom * model_box.diagonal().length();
    for (std::size_t i = 0; i < open.size(); ++i)
    {
        if (!go_on(grSPLITTER_POINT_ZOOM, i, open.size()))
            return false;
        const int block = open[i];
        giPoint3 point;
        const giBox3 seen =
            point_zoom_box(*owned_blocks[static_cast<std::size_t>(block)], box(block), least_size, point);
        count(block).zoom_point(point);
        const ZoomCounts pixels = zoom("point_zoom_", block, seen, point_zoom_reduction);
        count(block).set_point_zoom_counts(pixels.upper, pixels.lower, pixels.alone);
        if (diagnostics)
            diagnostics->point_zoom_counts(block, pixels.upper, pixels.lower, pixels.alone);
    }
    return go_on(grSPLITTER_POINT_ZOOM, open.size(), open.size());
}

bool Run::count_block_zoom_pixels()
{
    for (std::size_t i = 0; i < open.size(); ++i)
    {
        if (!go_on(grSPLITTER_BLOCK_ZOOM, i, open.size()))
            return false;
        const int block = open[i];
        int width, height;
        id_image.size_of_box(box(block), width, height, block_zoom_reduction);
        const ZoomCounts pixels = zoom("block_zoom_", block, box(block), block_zoom_reduction);
        count(block).set_block_zoom_counts(pixels.upper, pixels.lower, pixels.alone, width, height);
        count(block).set_vertical_count(gr_count_vertical(*owned_blocks[static_cast<std::size_t>(block)]));
        if (diagnostics)
            diagnostics->block_zoom_counts(block, pixels.upper, pixels.lower, pixels.alone, width, height);
    }
    return go_on(grSPLITTER_BLOCK_ZOOM, open.size(), open.size());
}
}

grSplitter::~grSplitter() = default;

void grSplitter::transform_nodes(const giTriBlockcoDList& blocks, const giXform3& xform)
{
    for (giTriBlock* block : blocks)
        block->nodes().transform(xform);
}

void grSplitter::transform_normals(const giTriBlockcoDList& blocks, const giXform3& xform)
{
    for (giTriBlock* block : blocks)
        if (std::vector<giVector3>* normals = block->normals())
            for (giVector3& normal : *normals)
                normal = normal * xform;
}

void grSplitter::find_bounding_boxes(const giTriBlockcoDList& blocks, std::vector<giBox3>& boxes)
{
    boxes.clear();
    for (const giTriBlock* block : blocks)
    {
        const bool drawable = block->triangle_count() > 0 && gr_is_finite(block->box()) &&
                              std::all_of(block->nodes().begin(), block->nodes().end(),
                                          [](const giPoint3& p) { return std::isfinite(p.x() + p.y() + p.z()); });
        boxes.push_back(drawable ? block->box() : giBox3());
    }
}

void grSplitter::find_self_hiders(const giTriBlockcoDList& blocks, grBlockIdx& self_hiders) const
{
    int index = 0;
    for (const giTriBlock* block : blocks)
    {
        if (is_self_hider(*block))
            self_hiders.add(index);
        ++index;
    }
}

int grSplitter::is_self_hider(const giTriBlock& block) const
{
    return gr_hides_itself(block);
}

int grSplitter::split(dgWidgetWindow* window, const giTriBlockcoDList& blocks, const giVector3& direction,
                      int image_size, grBlockIdx& upper, grBlockIdx& lower, grBlockIdx& undecided, grBlockIdx& both,
                      const grSplitterCallback& progress, grDiagSplitter* diagnostics)
{
    Run run(progress, diagnostics);
    // About the middle of the model, so that single precision positions lose nothing far from the origin.
    find_bounding_boxes(blocks, run.boxes);
    giBox3 world_box;
    for (const giBox3& box : run.boxes)
        world_box.merge(box);
    giXform3 to_frame;
    if (!window || !gr_view_frame(direction, world_box.empty() ? giPoint3() : world_box.middle(), to_frame))
        return 0;
    run.copy(blocks);
    transform_nodes(run.blocks, to_frame);
    transform_normals(run.blocks, to_frame);
    find_bounding_boxes(run.blocks, run.boxes);
    if (!run.measure(*window, image_size > 0 ? image_size : default_image_size))
        return 0;
    grBlockIdx self_hiders;
    find_self_hiders(run.blocks, self_hiders);
    std::vector<grBlockVisClass> classes;
    if (!run.classify(self_hiders, classes))
        return 0;
    grBlockIdx* const sets[] = {&upper, &lower, &undecided, &both};
    for (std::size_t block = 0; block < classes.size(); ++block)
        sets[classes[block]]->add(static_cast<int>(block));
    return 1;
}

UT_DEFINE_TYPE(grSplitter);
