// Looks of parts and sections beside what they cannot be faster than: a change of colours beside immediate drawing of
// the parts concerned, a frame with see-through parts beside one that draws these as often as that takes, box selection
// beside a full redraw, and the cap of a section beside a bare pass over the nodes.
#include "benchRing.h"
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRenderer.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giBox2.h"
#include "giPlane.h"
#include "grSection.h"
#include "grSelection.h"
#include "gr_pick.h"
#include "spPart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
constexpr int frames = 21;

using Blocks = dgRef<dgClientStructure>;

struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
        : window(device, 1280, 720), renderer(&window, &window), view(&renderer)
    {
        view.root(structure);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
        frame();
    }
    void frame()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    }
    void draw_alone(const dgStructure& structure)
    {
        view.begin();
        view.execute_structure(structure);
        view.end();
        renderer.finish();
    }
    std::vector<dgElementPath> parts(int first, int count) const
    {
        std::vector<dgElementPath> paths;
        for (int i = first; i < first + count; ++i)
            paths.push_back({dgRef<dgGraphicalElement>(view.root()->element(i))});
        return paths;
    }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

// count blocks of a ring that together have about so many triangles.
Blocks blocks(int count, int triangles)
{
    const Blocks structure(new dgClientStructure);
    const int columns = std::max(static_cast<int>(std::lround(std::sqrt(count / 2.0))), 1);
    const int rows = (count + columns - 1) / columns;
    const int side = std::max(static_cast<int>(std::lround(std::sqrt(triangles / 2.0 / count))), 1);
    for (int i = 0; i < count; ++i)
        structure->add(new dgTriangleBlock(
            ring(rows * side, columns * side, i / columns * side, side, i % columns * side, side), 1));
    return structure;
}

void print(const char* what, double ours, const char* limit, double bare)
{
    std::printf("  %-34s %9.3f ms; %s %.3f ms: ratio %.2f\n", what, 1e3 * ours, limit, 1e3 * bare, ours / bare);
}

void change_colours(const std::shared_ptr<dgGLDevice>& device, const char* name, int count, int triangles)
{
    const Blocks structure = blocks(count, triangles);
    Picture picture(device, structure.get());
    grSelection selection;
    selection.add_view(&picture.view);
    std::printf("%s\n", name);
    std::vector<double> full;
    for (int i = 0; i < 5; ++i)
        full.push_back(seconds([&] { picture.frame(); }));
    std::printf("  a full redraw %.3f ms\n", 1e3 * median(full));
    std::vector<double> times, bare;
    for (int i = 0; i <= frames; ++i)
    {
        const int part = i * 97 % count, before = (i + frames) * 97 % count;
        const Blocks two(new dgClientStructure);
        for (const int one : {part, before})
            two->add(structure->element(one));
        picture.frame();
        selection.hover(picture.parts(before, 1)[0]);
        picture.draw_alone(*two); // makes what drawing them keeps
        const auto path = picture.parts(part, 1)[0];
        times.push_back(seconds(
            [&]
            {
                selection.hover(path);
                picture.renderer.finish();
            }));
        bare.push_back(seconds([&] { picture.draw_alone(*two); }));
    }
    print("hover from one part to another", median(times), "drawing these two", median(bare));
    for (int n = 100; n <= count / 10; n *= 10)
    {
        times.clear();
        bare.clear();
        const Blocks some(new dgClientStructure);
        for (int i = 0; i < n; ++i)
            some->add(structure->element(i));
        const auto paths = picture.parts(0, n);
        picture.draw_alone(*some);
        picture.frame();
        for (int i = 0; i < frames; ++i)
        {
            bare.push_back(seconds([&] { picture.draw_alone(*some); }));
            times.push_back(seconds(
                [&]
                {
                    selection.select(i % 2 ? std::vector<dgElementPath>() : paths);
                    picture.renderer.finish();
                }));
        }
        selection.clear();
        print(("selecting " + std::to_string(n) + " parts, or no longer").c_str(), median(times), "drawing them",
              median(bare));
    }
}

void see_through(const std::shared_ptr<dgGLDevice>& device)
{
    const Blocks structure = blocks(1000, 1000000), thrice(new dgClientStructure);
    for (int i = 0; i < structure->nelements(); ++i)
        for (int times = i % 2 ? 1 : 3; times > 0; --times)
            thrice->add(structure->element(i));
    Picture picture(device, structure.get()), three(device, thrice.get());
    grSelection selection;
    selection.add_view(&picture.view);
    std::vector<dgElementPath> half;
    for (int i = 0; i < structure->nelements(); i += 2)
        half.push_back(picture.parts(i, 1)[0]);
    selection.opacity(half, 0.4);
    std::vector<double> times, bare;
    for (int i = 0; i < frames; ++i)
    {
        times.push_back(seconds([&] { picture.frame(); }));
        bare.push_back(seconds([&] { three.frame(); }));
    }
    std::printf("half of 1,000 parts of 1,000 triangles see-through\n");
    print("a frame", median(times), "solid, that half drawn three times", median(bare));
}

void select_boxes(const std::shared_ptr<dgGLDevice>& device)
{
    std::printf("all parts in a box, 1,000,000 triangles\n");
    double before = 0;
    for (const int count : {1000, 10000, 100000})
    {
        const Blocks structure = blocks(count, 1000000);
        Picture picture(device, structure.get());
        const giBox2 all(0, 0, 1279, 719);
        std::vector<double> times, all_times, bare;
        std::size_t found = 0, behind = 0;
        gr_pick_box(picture.view, all); // makes what picking keeps
        for (int i = 0; i < 3; ++i)
        {
            times.push_back(seconds([&] { found = gr_pick_box(picture.view, all).size(); }));
            all_times.push_back(seconds([&] { behind = gr_pick_box(picture.view, all, grPICK_ALL).size(); }));
            bare.push_back(seconds([&] { picture.frame(); }));
        }
        const double time = median(times);
        print(("the " + std::to_string(found) + " that are seen of " + std::to_string(count)).c_str(), time, "a redraw",
              median(bare));
        std::printf("    all %zu without a look at what is seen: %.3f ms\n", behind, 1e3 * median(all_times));
        if (before > 0)
            std::printf("    ten times the parts take %.1f times as long: growth n^%.2f\n", time / before,
                        std::log10(time / before));
        before = time;
    }
}

void cut_open(const std::shared_ptr<dgGLDevice>& device, const char* name, const Blocks& structure)
{
    Picture picture(device, structure.get());
    grSection section;
    section.add_view(&picture.view);
    const giBox3 box = structure->bounding_box();
    std::vector<double> times, still, bare, whole;
    for (int i = -1; i < frames; ++i)
    {
        const giPlane plane(giPoint3::interpolate(box.low(), box.high(), 0.3 + 0.4 * i / frames),
                            giVector3(1, 0.2, 0.1));
        section.plane({});
        const double without = seconds([&] { picture.frame(); });
        section.plane(plane);
        const double moved = seconds([&] { picture.frame(); });
        const double same = seconds([&] { picture.frame(); });
        double sum = 0;
        const double pass = seconds(
            [&]
            {
                for (int k = 0; k < structure->nelements(); ++k)
                {
                    const auto& nodes = static_cast<dgTriangleBlock*>(structure->element(k))->block().nodes();
                    for (int n = 0; n < nodes.count(); ++n)
                        sum += plane.distance(nodes[n]) > 0;
                }
            });
        if (i < 0 || sum < 0)
        {
            std::printf("%s\n  first cap %.3f ms, which makes the trees of picking\n", name, 1e3 * (moved - same));
            continue;
        }
        whole.push_back(without);
        times.push_back(moved - same);
        still.push_back(same);
        bare.push_back(pass);
    }
    print("the cap of a plane that moved", median(times), "a bare pass over the nodes", median(bare));
    print("a frame with a cap that is there", median(still), "a frame of the whole", median(whole));
}
}

int main()
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        std::fprintf(stderr, "bench_looks: %s\n", error.c_str());
        return EXIT_FAILURE;
    }
    device->make_no_levels();
    std::printf("%s\n", device->name().c_str());
    change_colours(device, "10,000 parts of 100 triangles", 10000, 1000000);
    change_colours(device, "100 parts of 10,000 triangles", 100, 1000000);
    see_through(device);
    select_boxes(device);

    const Blocks ball(new dgClientStructure);
    ball->add(new dgTriangleBlock(ring(1000, 500, 0, 1000, 0, 500), 1));
    cut_open(device, "one block of 1,000,000 triangles", ball);
    const Blocks part(new dgClientStructure);
    for (auto& block : sp_make_part())
        part->add(new dgTriangleBlock(block.release(), 1));
    cut_open(device, "the sample part", part);
    return EXIT_SUCCESS;
}
