// What is seen is what costs: frames of large networks of which little or nothing is in view, beside bare draws of what
// is in view; frames with an edit beside frames without; picking; frames that draw a share; and how these grow with the
// network.
//
//     bench_culling [large] [part...]    parts: none zoomed edits picks fast growth; all without
//
// With "large" sizes grow ten times as far.
#include "benchBareDraw.h"
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgColourAttribute.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgLineColour.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgPolyline.h"
#include "dgPrimitiveRun.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextHeight.h"
#include "dgTransform.h"
#include "dgView.h"
#include "dgWorldTransform.h"
#include "grViewRendererFast.h"
#include "gsStructureFlattener.h"
#include "gsStructureSkipper.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace
{
using StructureRef = dgRef<dgClientStructure>;
constexpr double two_pi = 6.283185307179586;

// Around a middle, of about n * n triangles.
giTriBlock* ball(const giPoint3& middle, double radius, int n)
{
    auto* block = new giTriBlock;
    const int around = n, rows = n / 2;
    std::vector<giVector3> normals;
    for (int row = 0; row <= rows; ++row)
        for (int i = 0; i <= around; ++i)
        {
            const double u = two_pi * i / around, v = two_pi / 2 * row / rows;
            const giVector3 out(std::sin(v) * std::cos(u), std::sin(v) * std::sin(u), std::cos(v));
            block->nodes().append(middle + out * radius);
            normals.push_back(out);
        }
    block->create_normals() = std::move(normals);
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < around; ++i)
        {
            const int node = row * (around + 1) + i;
            block->triangles().emplace_back(node, node + around + 1, node + around + 2);
            block->triangles().emplace_back(node, node + around + 2, node + 1);
        }
    return block;
}

// The places of n things in a cube of side 1 about the origin.
giPoint3 place(int i, int n, double& size)
{
    const int side = std::max(1, static_cast<int>(std::ceil(std::cbrt(n))));
    size = 0.3 / side;
    const auto at = [side](int k) { return (k + 0.5) / side - 0.5; };
    return {at(i % side), at(i / side % side), at(i / side / side)};
}

StructureRef balls(int n, int detail)
{
    StructureRef structure(new dgClientStructure);
    for (int i = 0; i < n; ++i)
    {
        double size;
        const giPoint3 middle = place(i, n, size);
        structure->add(new dgTriangleBlock(ball(middle, size, detail), 1));
    }
    return structure;
}

// Structures that each place one small block and give it a colour.
StructureRef called(int n)
{
    StructureRef structure(new dgClientStructure);
    double size;
    place(0, n, size);
    const dgRef<dgTriangleBlock> block(new dgTriangleBlock(ball({}, size, 4), 1));
    for (int i = 0; i < n; ++i)
    {
        const StructureRef part(new dgClientStructure);
        part->add(new dgTransform(giXform3::translation(place(i, n, size).vector())));
        part->add(new dgSurfaceColour(gsColour(0.5, 0.5, 0.5)));
        part->add(block.get());
        structure->add(new dgStructureCall(part.get()));
    }
    return structure;
}

StructureRef lines(int n)
{
    StructureRef structure(new dgClientStructure);
    for (int i = 0; i < n; ++i)
    {
        double size;
        const giPoint3 start = place(i, n, size);
        if (i % 1000 == 0)
            structure->add(new dgLineColour(gsColour(0.1, 0.9, 0.1)));
        structure->add(new dgPolyline({start, start + giVector3(size, size, 0)}));
    }
    return structure;
}

StructureRef texts(int n)
{
    StructureRef structure(new dgClientStructure);
    double size;
    place(0, n, size);
    structure->add(new dgTextHeight(size));
    for (int i = 0; i < n; ++i)
        structure->add(new dgText(place(i, n, size), utString("text")));
    return structure;
}

struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
        : window(device, 1024, 768), renderer(&window, &window), view(&renderer)
    {
        view.root(structure);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
    }
    void frame()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    }
    // Seconds that a frame takes, the background left aside.
    double time(int frames = 9)
    {
        frame();
        std::vector<double> times;
        for (int i = 0; i < frames; ++i)
        {
            view.erase(dgERASE_ZBUFFER_YES);
            renderer.finish();
            times.push_back(seconds(
                [&]
                {
                    view.render_network(nullptr);
                    renderer.finish();
                }));
        }
        return median(times);
    }
    void look_away() { view.camera().pan_view({1e4, 0}); }
    // At a place inside the box of all where there is nothing: between the planes, which lie close together.
    void look_between()
    {
        view.camera().zoom(1e-3);
        view.user_clip_planes(1);
        view.camera().front_back_plane(1e-3, -1e-3);
    }
    giBox2 middle() const { return giBox2(510, 382, 514, 386); }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

double ms(double s)
{
    return 1e3 * s;
}

// Counts and offsets of the pieces of so many triangles, in the order of blocks and triangles, of which any is in view.
void pieces_in_view(const dgStructure& structure, const dgCamera& camera, int piece_triangles,
                    std::vector<GLsizei>& counts, std::vector<const void*>& offsets)
{
    std::size_t before = 0;
    for (int e = 0; e < structure.nelements(); ++e)
    {
        const giTriBlock& block = static_cast<const dgTriangleBlock&>(*structure.element(e)).block();
        for (int first = 0; first < block.triangle_count(); first += piece_triangles)
        {
            const int end = std::min(first + piece_triangles, block.triangle_count());
            giBox2 shown;
            for (int t = first; t < end; ++t)
                for (int corner = 0; corner < 3; ++corner)
                {
                    giPoint3 device;
                    camera.transform(block.nodes()[block.triangles()[static_cast<std::size_t>(t)][corner]], device,
                                     dgSPACE_WORLD, dgSPACE_DEVICE);
                    shown.merge(giPoint2(device.x(), device.y()));
                }
            if (!shown.intersection(camera.view_port_dc()).empty())
            {
                const std::size_t start = 12 * (before + static_cast<std::size_t>(first));
                counts.push_back(3 * (end - first));
                offsets.push_back(reinterpret_cast<const void*>(start));
            }
        }
        before += static_cast<std::size_t>(block.triangle_count());
    }
}

void compare_zoomed(const char* name, const std::shared_ptr<dgGLDevice>& device, dgStructure* structure,
                    int piece_triangles, double goal)
{
    Picture picture(device, structure);
    const double whole = picture.time();
    picture.view.camera().zoom(0.01);
    const OwnBuffers own(*structure);
    std::vector<GLsizei> counts;
    std::vector<const void*> offsets;
    pieces_in_view(*structure, picture.view.camera(), piece_triangles, counts, offsets);
    picture.frame();
    std::vector<double> times, bare_times;
    for (int i = 0; i < 31; ++i)
    {
        times.push_back(seconds([&] { picture.frame(); }));
        bare_times.push_back(seconds([&] { own.frame(counts, offsets); }));
    }
    const double ours = median(times), bare = median(bare_times);
    picture.renderer.culling(0);
    std::printf("%s, zoomed in by 100: %.2f ms a frame (whole: %.2f ms, everything drawn: %.2f ms)\n", name, ms(ours),
                ms(whole), ms(picture.time(5)));
    std::printf("  bare draw of the %zu pieces in view %.2f ms: ratio %.3f (goal at most %.2f)\n", counts.size(),
                ms(bare), ours / bare, goal);
}

double time_of_none(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure, bool between)
{
    Picture picture(device, structure);
    picture.frame();
    if (between)
        picture.look_between();
    else
        picture.look_away();
    return picture.time();
}

void compare_none(const std::shared_ptr<dgGLDevice>& device)
{
    const StructureRef few = balls(10000, 4), many = balls(100000, 4);
    const double times[2][2] = {{time_of_none(device, few.get(), false), time_of_none(device, many.get(), false)},
                                {time_of_none(device, few.get(), true), time_of_none(device, many.get(), true)}};
    const char* names[] = {"looking away", "looking between them"};
    for (int i = 0; i < 2; ++i)
        std::printf("none in view, %s: %.3f ms of 10,000 elements (goal at most 0.5), %.3f ms of 100,000 (goal at most "
                    "0.75)\n",
                    names[i], ms(times[i][0]), ms(times[i][1]));
    const StructureRef labels = texts(10000);
    Picture picture(device, labels.get());
    const double whole = picture.time();
    picture.look_away();
    const double none = picture.time();
    picture.renderer.culling(0);
    std::printf(
        "none of 10,000 texts in view: %.2f ms (all of them in view: %.2f ms, all drawn out of view: %.2f ms)\n",
        ms(none), ms(whole), ms(picture.time()));
}

// What one edit before each frame adds to it.
void compare_edit(const char* name, const std::shared_ptr<dgGLDevice>& device, dgStructure* structure,
                  const std::function<void(int)>& edit)
{
    Picture picture(device, structure);
    picture.look_away(); // so that drawing hides nothing
    picture.frame();
    edit(0);
    picture.frame();
    std::vector<double> still, edited;
    for (int i = 1; i < 200; ++i)
    {
        still.push_back(seconds([&] { picture.view.render_network(nullptr); }));
        edited.push_back(seconds(
            [&]
            {
                edit(i);
                picture.view.render_network(nullptr);
            }));
    }
    std::printf("%s: %.1f us more a frame (goal at most 50)\n", name, 1e6 * (median(edited) - median(still)));
}

void compare_pick(const char* name, const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
{
    Picture picture(device, structure);
    const double redraw = picture.time(3);
    const dgPickAperture aperture(picture.middle());
    int found = 0;
    const auto pick = [&]
    {
        dgPickResult* result = picture.view.pick_all(aperture);
        found = result->count();
        result->release();
    };
    const double first = seconds(pick);
    std::vector<double> times;
    for (int i = 0; i < 31; ++i)
        times.push_back(processor_seconds(pick));
    std::printf("picking in %s: %.3f ms of processor time, %d found (goal at most 0.2); the first %.1f ms, %.2f of a "
                "redraw (goal at most "
                "1)\n",
                name, ms(median(times)), found, ms(first), first / redraw);
}

// Frames of the fast refresher's renderer when there is nothing to draw.
void compare_fast_empty(const std::shared_ptr<dgGLDevice>& device)
{
    const StructureRef root(new dgClientStructure);
    for (int i = 0; i < 100000; ++i)
        root->add(new dgStructureCall(StructureRef(new dgClientStructure).get()));
    Picture picture(device, root.get());
    std::vector<double> erasures;
    for (int i = 0; i < 9; ++i)
        erasures.push_back(seconds(
            [&]
            {
                picture.view.erase(dgERASE_ZBUFFER_YES);
                picture.renderer.finish();
            }));
    grViewRendererFast fast(&picture.view);
    for (int i = 0; i < 3; ++i)
        fast.refresh(nullptr, 0);
    std::vector<double> times;
    for (int i = 0; i < 21; ++i)
        times.push_back(seconds(
            [&]
            {
                fast.refresh(nullptr, 0);
                fast.slice_needed();
            }));
    std::printf("fast refresher, 100,000 empty structures: %.3f ms a frame, of which erasing takes %.3f\n",
                ms(median(times)), ms(median(erasures)));
}

// Notes which structures of one block each a thinned frame draws.
class DrawnAlone : public gsStructureSkipper
{
public:
    using gsStructureSkipper::gsStructureSkipper;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override
    {
        const long long before = prims_drawn();
        gsStructureSkipper::run(renderer, run);
        if (prims_drawn() == before)
            return;
        the_root->add(new dgWorldTransform(renderer.context().transform()));
        the_root->add(const_cast<dgGraphicalPrimitive*>(run.primitives.front()));
    }
    dgStructure* root() const { return the_root.get(); }

private:
    StructureRef the_root{new dgClientStructure};
};

// A thinned frame beside one of a flat network that has nothing but what the frame draws.
void compare_thinned(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
{
    Picture picture(device, structure);
    gsStructureSkipper counting(0, 1);
    const auto draw = [&](gsRenderAction& action)
    {
        picture.renderer.render_action(&action);
        picture.frame();
        picture.renderer.render_action(nullptr);
    };
    draw(counting);
    const auto total = static_cast<int>(counting.prims_drawn());
    for (const double share : {0.3, 0.1, 0.03})
    {
        picture.view.root(structure);
        DrawnAlone noting(total, share);
        draw(noting);
        Picture alone(device, noting.root());
        alone.view.camera() = picture.view.camera();
        alone.frame();
        gsStructureSkipper skipper(total, share);
        const StructureRef flat(new dgClientStructure);
        gsStructureFlattener flattener(structure, flat.get(), -1);
        draw(flattener);
        std::vector<double> flats, networks, alones;
        for (int i = 0; i < 11; ++i)
        {
            picture.view.root(structure);
            networks.push_back(processor_seconds([&] { draw(skipper); }));
            picture.view.root(flat.get());
            flats.push_back(processor_seconds([&] { draw(skipper); }));
            alones.push_back(processor_seconds([&] { alone.frame(); }));
        }
        std::printf("a share of %.2f of 100,000 structures, %lld triangles: %.2f ms of processor time, %.2f of that of "
                    "drawing these alone (goal at most 1.1); of the network itself %.2f\n",
                    share, skipper.prims_drawn(), ms(median(flats)), median(flats) / median(alones),
                    median(networks) / median(alones));
    }
}

// Frames of the fast refresher's renderer, and idle slices until the picture is complete.
void compare_fast(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
{
    Picture picture(device, structure);
    const double full = picture.time(3);
    grViewRendererFast fast(&picture.view);
    for (int i = 0; i < 2; ++i)
        fast.refresh(nullptr, 0); // flattens, then measures
    const double frame = seconds([&] { fast.refresh(nullptr, 0); });
    int slices = 0;
    const double idle = seconds(
        [&]
        {
            for (; fast.slice_needed(); ++slices)
                fast.draw_a_slice();
        });
    std::printf(
        "fast refresher, 100,000 structures: a share of %.3f takes %.3f of a redraw; complete after %d slices, %.2f "
        "redraws (goal at most 1.5)\n",
        fast.draw_ratio(), frame / full, slices, idle / full);
}

// The exponent with which times grow from one size to a larger one.
void print_growth(const char* name, const std::vector<std::pair<double, double>>& times)
{
    std::printf("%-42s", name);
    for (const auto& [size, time] : times)
        std::printf(" %9.4f", ms(time));
    const auto& [size_0, time_0] = times.front();
    const auto& [size_1, time_1] = times.back();
    std::printf(" ms, slope %.2f\n", std::log(time_1 / time_0) / std::log(size_1 / size_0));
}

void compare_growth(const char* name, const std::shared_ptr<dgGLDevice>& device, int smallest, int largest,
                    const std::function<StructureRef(int)>& make)
{
    std::vector<std::pair<double, double>> redraws, close, edits, picks;
    std::printf("%s from %d to %d, by 10:\n", name, smallest, largest);
    for (int n = smallest; n <= largest; n *= 10)
    {
        const StructureRef structure = make(n);
        Picture picture(device, structure.get());
        redraws.emplace_back(n, picture.time(3));
        const dgPickAperture aperture(picture.middle());
        const auto pick = [&] { picture.view.pick_all(aperture)->release(); };
        pick();
        picks.emplace_back(n, seconds(
                                  [&]
                                  {
                                      for (int i = 0; i < 20; ++i)
                                          pick();
                                  }) /
                                  20);
        picture.view.camera().zoom(0.01);
        close.emplace_back(n, picture.time(5));
        picture.look_away();
        picture.frame();
        const dgRef<dgTransform> moved(new dgTransform(giXform3()));
        const StructureRef part(new dgClientStructure);
        part->add(moved.get());
        part->add(new dgStructureCall(structure->nelements() ? structure.get() : nullptr));
        picture.view.root(part.get());
        picture.frame();
        edits.emplace_back(n, seconds(
                                  [&]
                                  {
                                      for (int i = 0; i < 50; ++i)
                                      {
                                          moved->transform(giXform3::translation({1e-3 * (i + 1), 0, 0}));
                                          picture.view.render_network(nullptr);
                                      }
                                  }) /
                                  50);
    }
    print_growth("  redraw", redraws);
    print_growth("  redraw, zoomed in by 100", close);
    print_growth("  frame with an edit, nothing in view", edits);
    print_growth("  pick", picks);
}

void compare_zoomed_balls(const std::shared_ptr<dgGLDevice>& device)
{
    const StructureRef many = balls(10000, 10), one = balls(1, 1000);
    compare_zoomed("10,000 balls of 100 triangles", device, many.get(), 1 << 20, 1.25);
    compare_zoomed("one block of 1,000,000 triangles", device, one.get(), 256, 1.5);
}

void compare_edits(const std::shared_ptr<dgGLDevice>& device)
{
    const StructureRef structures = called(100000), many_lines = lines(1000000);
    compare_edit("one transform edited among 100,000 structures", device, structures.get(),
                 [&](int i)
                 {
                     double size;
                     const int k = i * 97 % 100000;
                     dgStructure* part = structures->element(k)->called_structure();
                     static_cast<dgTransform*>(part->element(0))
                         ->transform(giXform3::translation(place(k, 100000, size).vector() * (1 + 1e-4 * (i % 7))));
                 });
    compare_edit("one colour edited among 100,000 structures", device, structures.get(),
                 [&](int i)
                 {
                     dgStructure* part = structures->element(i * 97 % 100000)->called_structure();
                     static_cast<dgColourAttribute*>(part->element(1))->colour(gsColour(0.001 * i, 0, 0));
                 });
    compare_edit("one colour edited among 1,000,000 lines", device, many_lines.get(),
                 [&](int i)
                 { static_cast<dgColourAttribute*>(many_lines->element(0))->colour(gsColour(0.001 * i, 0, 0)); });
    compare_edit("one line edited among 1,000,000 lines", device, many_lines.get(),
                 [&](int i)
                 {
                     double size;
                     const giPoint3 start = place(1000 * i, 1000000, size);
                     static_cast<dgPolyline*>(many_lines->element(1 + 1001 * i))
                         ->points({start, start + giVector3(size, 0, size)});
                 });
}

void compare_picks(const std::shared_ptr<dgGLDevice>& device)
{
    compare_pick("10,000 balls of 100 triangles", device, balls(10000, 10).get());
    compare_pick("one block of 1,000,000 triangles", device, balls(1, 1000).get());
    compare_pick("100,000 structures", device, called(100000).get());
    compare_pick("1,000,000 lines", device, lines(1000000).get());
}
}

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto given = [&](const char* word)
    { return std::find(arguments.begin(), arguments.end(), word) != arguments.end(); };
    const int large = given("large"), all = arguments.size() == static_cast<std::size_t>(large);
    const int factor = large ? 10 : 1;
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        std::fprintf(stderr, "bench_culling: %s\n", error.c_str());
        return EXIT_FAILURE;
    }
    std::printf("%s\n", device->name().c_str());
    if (all || given("none"))
        compare_none(device);
    if (all || given("zoomed"))
        compare_zoomed_balls(device);
    if (all || given("edits"))
        compare_edits(device);
    if (all || given("picks"))
        compare_picks(device);
    if (all || given("fast"))
    {
        grViewRendererFast::minimum_framerate(20);
        const StructureRef structures = called(100000);
        compare_thinned(device, structures.get());
        compare_fast(device, structures.get());
        compare_fast_empty(device);
    }
    if (all || given("growth"))
    {
        compare_growth("triangles in one block", device, 1000, 1000000 * factor,
                       [](int n) { return balls(1, static_cast<int>(std::sqrt(n))); });
        compare_growth("called structures", device, 100, 100000 * factor, called);
    }
    return EXIT_SUCCESS;
}
