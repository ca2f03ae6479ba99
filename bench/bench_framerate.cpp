// A drag of five seconds that asks for ten frames a second, on scenes that take longer to draw: what frames take with
// the full, the fast and the time-out refresher, and how long it then is until the picture is complete. Beside that,
// what flattening costs, what a thinned frame costs over a bare draw call of the same triangles, and what the idle
// calls take that smooth the edges of the view at rest, the longest of which is how long an event may have to wait. The
// same as of drags is asked of the tools of the wheel, the spaceball, a glide to a saved camera and a spin, with the
// fast refresher.
//
//     bench_framerate [--rate N] [--seconds S] [--levels] [--only TOOL]... [scene...]
//
// Scenes: one many placed structures mixed; all without. Tools: full fast timeout wheel spaceball glide spin; all, and
// what else is measured, without. --rate asks for another number of frames a second, --seconds for another length of
// the drag. --levels draws shares by simplified levels, which are waited for; without, shares are samples.
#include "benchRing.h"
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgCompiledStructure.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgPrimitiveRun.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTimeoutRendererCache.h"
#include "grTwiddleMan.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "grViewSmoother.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"
#include "gwSpaceballEvent.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr int width = 1280, height = 720;
std::vector<std::string> table; // of the scene, as docs/frame-rate.md has it
double framerate = 10, drag_seconds = 5;
int levels = 0;
std::vector<std::string> only; // tools; all without

bool measured(const char* tool)
{
    return only.empty() || std::find(only.begin(), only.end(), tool) != only.end();
}

class Stopwatch
{
public:
    double seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - the_start).count();
    }

private:
    std::chrono::steady_clock::time_point the_start = std::chrono::steady_clock::now();
};

// The value that at least share of the values do not exceed.
double quantile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    const auto rank = static_cast<std::size_t>(std::ceil(share * static_cast<double>(values.size())));
    return values[std::max<std::size_t>(rank, 1) - 1];
}

using Root = dgRef<dgClientStructure>;

Root one_object()
{
    const Root root(new dgClientStructure);
    root->add(new dgTriangleBlock(ring(2000, 1000, 0, 2000, 0, 1000), 1));
    return root;
}

// Each object is a structure of its own; placed ones have a colour and a place of their own too.
Root many_objects(int placed)
{
    const Root root(new dgClientStructure);
    for (int i = 0; i < 10000; ++i)
    {
        const dgRef<dgClientStructure> object(new dgClientStructure);
        if (placed)
        {
            object->add(new dgSurfaceColour(gsColour(0.4 + i % 7 * 0.1, 0.5 + i % 3 * 0.2, 0.9 - i % 5 * 0.1)));
            object->add(new dgTransform(giXform3::translation(giVector3(0, 0, i % 10))));
        }
        object->add(new dgTriangleBlock(ring(500, 1000, 5 * (i / 100), 5, 10 * (i % 100), 10), 1));
        root->add(new dgStructureCall(object.get()));
    }
    return root;
}

// Structures of one small object each.
Root many_structures()
{
    const Root root(new dgClientStructure);
    const dgRef<dgTriangleBlock> block(new dgTriangleBlock(ring(500, 1000, 0, 2, 0, 3), 1));
    for (int i = 0; i < 100000; ++i)
    {
        const dgRef<dgClientStructure> object(new dgClientStructure);
        object->add(new dgSurfaceColour(gsColour(0.4 + i % 7 * 0.1, 0.5 + i % 3 * 0.2, 0.9 - i % 5 * 0.1)));
        const giAngle u(two_pi * (i / 400) / 250);
        object->add(
            new dgTransform(giXform3::translation(giVector3(0, 0, i % 400 * 0.1)) * giXform3::rotation(u, gi_Z_AXIS)));
        object->add(block.get());
        root->add(new dgStructureCall(object.get()));
    }
    return root;
}

Root mixed()
{
    const Root root(new dgClientStructure);
    for (int i = 0; i < 2000; ++i)
        root->add(new dgTriangleBlock(ring(2000, 1000, 40 * (i / 40), 40, 25 * (i % 40), 25), 1));
    root->add(new dgLineColour(gsColour(0.1, 0.2, 0.6)));
    for (int i = 0; i < 200000; ++i)
    {
        const double u = two_pi * (i / 400) / 500, v = two_pi * (i % 400) / 400;
        root->add(new dgPolyline({on_ring(u, v), on_ring(u, v + two_pi / 400)}));
    }
    return root;
}

struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* root)
        : window(device, width, height), renderer(&window, nullptr, &input_window), view(&renderer)
    {
        view.root(root);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
    }
    void full_frame()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    }
    // What a full redraw shows, and what it takes.
    double full_redraw(dgImage& image)
    {
        renderer.select_buffer(dgBACK_BUFFER);
        std::vector<double> times;
        for (int i = 0; i < 5; ++i)
            times.push_back(seconds([this] { full_frame(); }));
        renderer.read_pixels(window.device_box(), image);
        renderer.select_buffer(dgFRONT_BUFFER);
        return median(times);
    }
    dgImage front()
    {
        dgImage image;
        renderer.select_buffer(dgFRONT_BUFFER);
        renderer.read_pixels(window.device_box(), image);
        return image;
    }

    gwHeadlessWindow input_window{width, height};
    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

// The k-th step of the drag: to the right, then upwards, then back, as a hand does, and little by little to another
// side.
void step(dgView& view, int k)
{
    view.camera().rotate_view(k / 8 % 2 ? gi_X_AXIS : gi_Y_AXIS, k / 16 % 2 ? -0.03 : 0.03);
    view.camera().rotate_view(gi_X_AXIS, 0.005);
}

const char* yes_no(bool answer)
{
    return answer ? "yes" : "NO";
}

// What is done for five seconds after a start, then left alone until idle calls have nothing more to do, and ended.
template <class Frame, class Idle, class End>
void drag(const char* name, Picture& picture, Frame frame, Idle idle, End end, const Stopwatch& whole = Stopwatch())
{
    std::vector<double> times;
    for (int k = 0; k < 3 || whole.seconds() < drag_seconds; ++k)
    {
        times.push_back(seconds(
            [&]
            {
                frame(k);
                picture.renderer.finish();
            }));
    }
    int calls = 0;
    double idle_seconds = 0;
    const double idle_processor_seconds = processor_seconds(
        [&]
        {
            idle_seconds = seconds(
                [&]
                {
                    while (idle() != grIDLE_DONE && calls < 100000)
                        ++calls;
                    picture.renderer.finish();
                });
        });
    const dgImage completed = picture.front();
    end();
    const dgImage ended = picture.front();
    dgImage full;
    const double full_seconds = picture.full_redraw(full);
    const double full_processor_seconds = processor_seconds(
                                              [&]
                                              {
                                                  for (int i = 0; i < 3; ++i)
                                                      picture.full_frame();
                                              }) /
                                          3;
    const double budget = 1 / framerate;
    const double mid = median(times), late = quantile(times, 0.95);
    std::printf("  %-9s %3zu frames: median %6.1f ms = %3.0f %% of the budget, 95 %% below %6.1f ms = %.2f budgets; "
                "first %6.1f, second %6.1f ms\n",
                name, times.size(), 1e3 * mid, 100 * mid / budget, 1e3 * late, late / budget, 1e3 * times[0],
                1e3 * times[1]);
    std::printf(
        "            complete after %6.1f ms of %d idle calls = %.2f full redraws, %.2f by processor time; complete "
        "picture the same: %s, end the same: %s\n",
        1e3 * idle_seconds, calls, idle_seconds / full_seconds, idle_processor_seconds / full_processor_seconds,
        yes_no(completed.rgba == full.rgba), yes_no(ended.rgba == full.rgba));
    char row[200];
    std::snprintf(row, sizeof row, "| %s | %.0f ms | %.0f %% | %.2f frames | %.2f full redraws |", name,
                  1e3 * full_seconds, 100 * mid / budget, late / budget, idle_seconds / full_seconds);
    table.emplace_back(row);
}

void drag(const char* name, Picture& picture, grViewRefresher& refresher, const dgCamera& start)
{
    picture.view.camera() = start;
    refresher.base_start_twiddle();
    drag(
        name, picture,
        [&](int k)
        {
            step(picture.view, k);
            refresher.base_refresh();
        },
        [&] { return refresher.base_idle(); }, [&] { refresher.base_end_twiddle(); });
}

// An application's tools over the picture.
class Tools
{
public:
    Tools(Picture& picture, const dgCamera& start) : the_picture(picture)
    {
        picture.view.camera() = start;
        the_hooks.use_refresher_fast(1);
        the_hooks.allow_spinning(1);
        the_hooks.draw_trackball_icon(0);
        the_db.set_resource("translations", "mouse_button 1 : trackball, mouse_button 3 : view_index (previous)");
        the_db.set_resource("spin_in_frame_time", "yes");
        the_db.set_resource("view_index_seconds", std::to_string(drag_seconds));
        the_twiddling = std::make_unique<grStdTwiddling>(&picture.input_window.input(), &the_db, &the_hooks, nullptr);
        idle();
    }
    grIdleAction idle() { return the_twiddling->twiddle_man()->idle(); }
    void key(gwKeyType type, int number, int transition, double delta = 0)
    {
        the_picture.input_window.input().post(
            gwKeyEvent(&the_picture.input_window, the_x, height / 2, 0, transition, type, number, delta));
    }
    void move(int x)
    {
        the_x = x;
        the_picture.input_window.input().post(gwMouseEvent(&the_picture.input_window, x, height / 2));
    }
    void deflect(const giVector3& turn, const giVector3& push)
    {
        the_picture.input_window.input().post(gwSpaceballEvent(&the_picture.input_window, the_x, height / 2, 0, turn,
                                                               push, gwSpaceballEvent::usual_seconds));
    }
    // A drag and its release, which ends as a throw.
    void throw_view()
    {
        key(gwMOUSE_BUTTON, 1, gwPRESSED);
        for (int i = 1; i <= 10; ++i)
            move(width / 2 + 10 * i);
        key(gwMOUSE_BUTTON, 1, gwRELEASED);
    }
    void stop() { the_twiddling->twiddle_man()->stop_twiddling(); }

private:
    Picture& the_picture;
    int the_x = width / 2;
    grStdTwiddleHooks the_hooks;
    gwResourceDB the_db;
    std::unique_ptr<grStdTwiddling> the_twiddling;
};

void compare_tools(Picture& picture, const dgCamera& start)
{
    if (measured("wheel"))
    {
        // A notch, or a report of the spaceball, comes for each frame.
        Tools tools(picture, start);
        drag(
            "wheel", picture, [&](int k) { tools.key(gwMOUSE_WHEEL, 1, gwPRESSED, k / 8 % 2 ? -1 : 1); },
            [&] { return tools.idle(); }, [&] { tools.stop(); });
    }
    if (measured("spaceball"))
    {
        Tools tools(picture, start);
        tools.key(gwSPACEBALL_BUTTON, gwSPACEBALL_MOVED, gwPRESSED);
        drag(
            "spaceball", picture,
            [&](int k) { tools.deflect(giVector3(k / 16 % 2 ? -1 : 1, 0.5, 0), giVector3(0, 0, k / 8 % 2 ? -1 : 1)); },
            [&] { return tools.idle(); }, [&] { tools.key(gwSPACEBALL_BUTTON, gwSPACEBALL_MOVED, gwRELEASED); });
    }
    if (measured("glide"))
    {
        // To the camera that the first turn has left, in idle calls.
        Tools tools(picture, start);
        tools.throw_view();
        tools.throw_view();
        tools.stop(); // what ends the spin draws a picture, before the way begins
        const Stopwatch whole;
        tools.key(gwMOUSE_BUTTON, 3, gwPRESSED);
        tools.key(gwMOUSE_BUTTON, 3, gwRELEASED);
        drag(
            "glide", picture, [&](int) { tools.idle(); }, [&] { return tools.idle(); }, [&] { tools.stop(); }, whole);
    }
    if (measured("spin"))
    {
        Tools tools(picture, start);
        tools.throw_view();
        const auto stop = [&]
        {
            tools.stop();
            return grIDLE_DONE;
        };
        drag(
            "spin", picture, [&](int) { tools.idle(); }, stop, [] {});
    }
}

void rest(Picture& picture, double full_seconds)
{
    grViewSmoother smoother(picture.renderer);
    picture.renderer.accumulate(1);
    // As after a drag: what slices take is learnt in the first one.
    smoother.idle();
    smoother.restart();
    std::vector<double> times;
    const double whole = seconds(
        [&]
        {
            for (bool again = true; again;)
                times.push_back(seconds([&] { again = smoother.idle() != grIDLE_DONE; }));
        });
    picture.renderer.accumulate(0);
    const double longest = quantile(times, 1);
    std::printf(
        "  at rest  %zu idle calls: median %.1f ms, 95 %% below %.1f ms, the longest %.1f ms = %.3f full redraws; "
        "edges smooth after %.0f ms = %.2f times %d full redraws\n",
        times.size(), 1e3 * median(times), 1e3 * quantile(times, 0.95), 1e3 * longest, longest / full_seconds,
        1e3 * whole, whole / (grViewSmoother::n_pictures * full_seconds), grViewSmoother::n_pictures);
}

// Thinned frames of the fast renderer, by samples, beside bare draws of the same triangles, on a scene of one block.
void compare_bare(Picture& picture, dgStructure& root)
{
    const int levels = picture.renderer.simplified_levels();
    picture.renderer.simplified_levels(0);
    grViewRendererFast fast(&picture.view);
    fast.refresh(nullptr, 0);
    fast.refresh(nullptr, 0);
    fast.refresh(nullptr, 0);
    const auto& run = *root.compiled().steps()[0].run;
    std::vector<dgFeatureSpan> spans;
    dgGLIndexRanges ranges;
    int vertex_array = 0;
    glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &vertex_array);
    const auto bare = [&]
    {
        glBindVertexArray(static_cast<unsigned>(vertex_array));
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
        glMultiDrawElements(GL_TRIANGLES, ranges.counts.data(), GL_UNSIGNED_INT, ranges.offsets.data(),
                            static_cast<GLsizei>(ranges.counts.size()));
        glFinish();
    };
    std::vector<double> counts, ours, bares, ratios;
    for (int i = 0; i < 21; ++i)
    {
        // The share follows what frames take.
        const int count = static_cast<int>(std::lround(run.sampling().features() * fast.followed_ratio()));
        spans.clear();
        run.sampling().sample(0, count, spans);
        picture.window.device().geometry().store(run, spans, ranges);
        counts.push_back(count);
        ours.push_back(seconds([&] { fast.refresh(nullptr, 0); }));
        bares.push_back(seconds(bare));
        ratios.push_back(ours.back() / bares.back());
    }
    picture.renderer.simplified_levels(levels);
    std::printf(
        "  a thinned frame of %.0f triangles: %.2f ms, bare draw of the same %.2f ms: ratio %.3f (goal at most 1.10)\n",
        median(counts), 1e3 * median(ours), 1e3 * median(bares), median(ratios));
}

void measure(const char* name, const std::shared_ptr<dgGLDevice>& device, const Root& root, int one_block)
{
    Picture picture(device, root.get());
    const dgCamera start = picture.view.camera();
    picture.renderer.select_buffer(dgBACK_BUFFER);
    const double first = seconds([&] { picture.full_frame(); });
    dgImage image;
    const double full = picture.full_redraw(image);
    std::printf("%s: full redraw %.1f ms, the first one %.1f ms\n", name, 1e3 * full, 1e3 * first);

    // Flattening, and frames of the flat copy, without a limit of time.
    if (only.empty())
    {
        grViewRendererFast::minimum_framerate(0.001);
        std::vector<double> flattening, flat, network;
        for (int i = 0; i < 5; ++i)
        {
            grViewRendererFast fast(&picture.view);
            flattening.push_back(seconds([&] { fast.refresh(nullptr, 0); }));
            fast.refresh(nullptr, 0);
            flat.push_back(seconds([&] { fast.refresh(nullptr, 0); }));
            network.push_back(seconds([&] { picture.full_frame(); }));
        }
        std::printf(
            "  flattening frame %.1f ms = %.2f full redraws (goal at most 1.5); frame of the flat copy %.1f ms = "
            "%.2f of the network's %.1f ms\n",
            1e3 * median(flattening), median(flattening) / median(network), 1e3 * median(flat),
            median(flat) / median(network), 1e3 * median(network));
    }
    grViewRendererFast::minimum_framerate(framerate);
    picture.renderer.simplified_levels(levels);
    if (levels)
        device->geometry().complete_levels();
    const dgViewcoDList views{&picture.view};
    if (measured("full"))
    {
        grViewRefresherFull refresher(views);
        drag("full", picture, refresher, start);
    }
    if (measured("fast"))
    {
        grViewRefresherFast refresher(views);
        drag("fast", picture, refresher, start);
    }
    if (measured("timeout"))
    {
        grTimeoutRendererCache cache(16);
        grViewRefresherTimeout refresher(views, &cache, framerate, 1, 1, 1);
        drag("timeout", picture, refresher, start);
    }
    compare_tools(picture, start);
    if (only.empty())
        rest(picture, picture.full_redraw(image));
    if (only.empty() && one_block)
        compare_bare(picture, *root);
    std::printf("| %s | Full redraw | Median of the frames, of their time | 95 %% of them within | Complete after |\n",
                name);
    for (const std::string& row : std::exchange(table, {}))
        std::printf("%s\n", row.c_str());
}
}

int main(int argc, char** argv)
{
    std::vector<std::string> scenes;
    for (int i = 1; i < argc; ++i)
    {
        const std::string argument = argv[i];
        if (argument == "--levels")
            levels = 1;
        else if (argument == "--rate" && i + 1 < argc)
            framerate = std::max(std::atof(argv[++i]), 0.1);
        else if (argument == "--seconds" && i + 1 < argc)
            drag_seconds = std::atof(argv[++i]);
        else if (argument == "--only" && i + 1 < argc)
            only.emplace_back(argv[++i]);
        else
            scenes.push_back(argument);
    }
    const auto wanted = [&](const char* scene)
    { return scenes.empty() || std::find(scenes.begin(), scenes.end(), scene) != scenes.end(); };
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        std::fprintf(stderr, "bench_framerate: %s\n", error.c_str());
        return EXIT_FAILURE;
    }
    std::printf(
        "%s; %d x %d pixels; %.0f frames a second asked for; goals: median 75 to 100 %% of the budget, 95 %% below "
        "1.2 budgets, complete within 1.5 full redraws\n",
        device->name().c_str(), width, height, framerate);
    if (wanted("one"))
        measure("one object of 4,000,000 triangles", device, one_object(), 1);
    if (wanted("many"))
        measure("10,000 objects of 100 triangles", device, many_objects(0), 0);
    if (wanted("placed"))
        measure("10,000 objects of 100 triangles, each with its colour and place", device, many_objects(1), 0);
    if (wanted("structures"))
        measure("100,000 structures of 12 triangles", device, many_structures(), 0);
    if (wanted("mixed"))
        measure("2,000 blocks of 2,000 triangles and 200,000 lines", device, mixed(), 0);
    return EXIT_SUCCESS;
}
