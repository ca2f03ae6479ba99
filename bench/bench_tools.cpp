// One mouse step of every tool that is dragged, on one view and on 16 through the multi-view tools: from the event to
// the cameras, without drawing. Beside it stands what the camera itself takes for such a step.
#include "benchIdleRefresher.h"
#include "dgClientStructure.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgTraceWindow.h"
#include "dgTransform.h"
#include "dgView.h"
#include "grStdToolFactory.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"
#include "gwSpaceballEvent.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr int width = 1920, height = 1080;
constexpr int steps = 5000, repetitions = 21, many = 16;

using Clock = std::chrono::steady_clock;

class Hooks : public grStdTwiddleHooks
{
public:
    Hooks(dgStructure* structure, int spin) : the_structure(structure)
    {
        draw_trackball_icon(0);
        allow_spinning(spin);
    }
    dgView* identify_views(const gwKeyEvent&, dgViewcoDList& views) override
    {
        for (dgView* view : the_views)
            views.add_last(view);
        return the_views.front();
    }
    grViewRefresher* view_refresher(const grStdTwiddleTool*, const dgViewcoDList& views) override
    {
        return new benchIdleRefresher(views);
    }
    dgStructure* identify_structure() override { return the_structure; }

    std::vector<dgView*> the_views;

private:
    dgStructure* the_structure;
};

// A tool on mouse button 1, with a number of views.
class Twiddled
{
public:
    Twiddled(const std::string& tool, int n_views) : the_part(new dgClientStructure), the_hooks(the_part.get(), 1)
    {
        the_part->add(new dgTransform(giXform3()));
        the_part->add(new dgPolyline({giPoint3(0, 0, 0), giPoint3(1, 1, 1)}));
        for (int i = 0; i < n_views; ++i)
        {
            the_views.push_back(std::make_unique<dgView>(&the_renderer));
            the_views.back()->root(the_part.get());
            the_views.back()->camera().view_port_dc(the_renderer.window_box());
            the_hooks.the_views.push_back(the_views.back().get());
        }
        the_db.set_resource("translations", utString("mouse_button 1 : " + tool));
        the_twiddling = std::make_unique<grStdTwiddling>(&the_window.input(), &the_db, &the_hooks, nullptr);
        grStdToolFactoryOptions options;
        options.use_multi_tools(n_views > 1);
        the_twiddling->factory()->push_options(options);
    }

    // Nanoseconds a step.
    double time(const std::vector<std::unique_ptr<gwEvent>>& events)
    {
        const int ball = gwSpaceballEvent::ut_dynamic_cast(events.front().get()) != nullptr;
        the_window.input().post(gwKeyEvent(&the_window, 10, 10, 0, gwPRESSED,
                                           ball ? gwSPACEBALL_BUTTON : gwMOUSE_BUTTON, ball ? gwSPACEBALL_MOVED : 1));
        const auto start = Clock::now();
        for (const auto& event : events)
            the_window.input().post(*event);
        const double nanoseconds = std::chrono::duration<double, std::nano>(Clock::now() - start).count();
        the_twiddling->twiddle_man()->stop_twiddling();
        for (const auto& view : the_views)
        {
            view->camera().orientation(giXform3());
            view->camera().view_window(giBox2(-1, -1, 1, 1));
        }
        return nanoseconds / static_cast<double>(events.size());
    }

private:
    dgRef<dgStructure> the_part;
    Hooks the_hooks;
    gwHeadlessWindow the_window{width, height};
    dgTraceWindow the_surface{width, height};
    dgRenderer the_renderer{&the_surface, nullptr, &the_window};
    std::vector<std::unique_ptr<dgView>> the_views;
    gwResourceDB the_db;
    std::unique_ptr<grStdTwiddling> the_twiddling;
};

// A winding drag; successive points differ.
std::vector<std::unique_ptr<gwEvent>> winding_drag(int ball)
{
    std::vector<std::unique_ptr<gwEvent>> events;
    for (int i = 0; i < steps; ++i)
    {
        const double x = std::sin(0.013 * i), y = std::sin(0.029 * i);
        if (ball)
            events.push_back(
                std::make_unique<gwSpaceballEvent>(nullptr, 10, 10, 0, giVector3(x, y, x * y), giVector3(y, x, x - y)));
        else
            events.push_back(std::make_unique<gwMouseEvent>(nullptr, static_cast<int>(width * (0.5 + 0.4 * x)),
                                                            static_cast<int>(height * (0.5 + 0.4 * y))));
    }
    return events;
}

// What the camera alone takes for a step.
void bare_turn(dgCamera& camera, double x)
{
    camera.orientation(camera.orientation() *
                       giXform3::rotation(giAngle(0.001), giVector3(x, 1, 0), giPoint3(0, 0, x)));
    camera.world2view_altered();
}
void bare_zoom(dgCamera& camera, double x)
{
    camera.view_window(giBox2(-1, -1, 1, 1));
    camera.zoom(std::pow(10.0, x));
}
void bare_pan(dgCamera& camera, double x)
{
    camera.pan_view(giVector2(0.001 * x, -0.001 * x));
}
void bare_planes(dgCamera& camera, double x)
{
    camera.front_back_plane(1 + x, x - 1);
}
void bare_ball(dgCamera& camera, double x)
{
    bare_turn(camera, x);
    camera.zoom(std::pow(1.02, x));
}

double time_bare(void (*step)(dgCamera&, double))
{
    dgView view;
    const auto start = Clock::now();
    for (int i = 0; i < steps; ++i)
        step(view.camera(), i * (1.0 / steps));
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / steps;
}

const struct
{
    const char* tool;
    void (*bare)(dgCamera&, double);
    int many_views; // 0: there is no variant for several views
} rows[] = {{"trackball", bare_turn, 1},
            {"rotate_view", bare_turn, 1},
            {"rotate_view (xyz_axis)", bare_turn, 1},
            {"zoom", bare_zoom, 1},
            {"pan", bare_pan, 1},
            {"move_front_back (both)", bare_planes, 1},
            {"spaceball", bare_ball, 1},
            {"translate_structure", bare_turn, 0},
            {"scale_structure", bare_turn, 0},
            {"rotate_structure", bare_turn, 0}};
}

int main()
{
    std::printf("%-24s %12s %18s %12s %14s\n", "nanoseconds a step", "one view", "16 views, a view", "camera alone",
                "one / camera");
    for (const auto& row : rows)
    {
        const std::vector<std::unique_ptr<gwEvent>> events = winding_drag(std::string(row.tool) == "spaceball");
        Twiddled single(row.tool, 1), multi(row.tool, many);
        double one = 1e30, sixteen = 1e30, bare = 1e30;
        for (int i = 0; i < repetitions; ++i)
        {
            one = std::min(one, single.time(events));
            if (row.many_views)
                sixteen = std::min(sixteen, multi.time(events) / many);
            bare = std::min(bare, time_bare(row.bare));
        }
        if (row.many_views)
            std::printf("%-24s %12.1f %18.1f %12.1f %14.2f\n", row.tool, one, sixteen, bare, one / bare);
        else
            std::printf("%-24s %12.1f %18s %12.1f %14.2f\n", row.tool, one, "-", bare, one / bare);
    }
}
