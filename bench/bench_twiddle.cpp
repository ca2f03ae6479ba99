// One mouse step of a trackball drag, from the event to the camera without drawing, beside the bare arithmetic of it.
#include "benchIdleRefresher.h"
#include "dgRenderer.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "grAction.h"
#include "grStdTwiddleHooks.h"
#include "grToolFactory.h"
#include "grTrackballTool.h"
#include "grTwiddleMan.h"
#include "gwHeadlessWindow.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace
{
constexpr int width = 1920, height = 1080;
constexpr int steps = 20000, repetitions = 41;

using Clock = std::chrono::steady_clock;

class IdleHooks : public grStdTwiddleHooks
{
public:
    grViewRefresher* view_refresher(const grStdTwiddleTool*, const dgViewcoDList& views) override
    {
        return new benchIdleRefresher(views);
    }
};

class TrackballFactory : public grToolFactory
{
public:
    explicit TrackballFactory(grStdTwiddleHooks* hooks) : the_hooks(hooks) {}
    int identify_tool(utString) const override { return 1; }
    grTwiddleTool* create_tool(int, const utString& args) const override
    {
        return new grTrackballTool(args, nullptr, the_hooks);
    }

private:
    grStdTwiddleHooks* the_hooks;
};

// A winding drag over sphere and sheet; successive points differ.
std::vector<gwMouseEvent> winding_drag(gwWindow* window)
{
    std::vector<gwMouseEvent> events;
    for (int i = 0; i < steps; ++i)
        events.emplace_back(window, static_cast<int>(width * (0.5 + 0.4 * std::sin(0.013 * i))),
                            static_cast<int>(height * (0.5 + 0.4 * std::sin(0.029 * i))));
    return events;
}

double height_above(double x, double y, double radius)
{
    const double squared = x * x + y * y, distance = std::sqrt(squared);
    if (distance < radius * 0.7071067811865476)
        return std::sqrt(radius * radius - squared);
    const double joint = radius / 1.4142135623730951;
    return joint * joint / distance;
}

// What a step has to compute, on plain numbers: m is a rigid transform for points as rows.
void bare_step(double last_x, double last_y, double x, double y, const double (&centre)[3], double (&m)[4][4])
{
    constexpr double radius = 0.4;
    const double ax = last_x / width - 0.5, ay = last_y / height - 0.5, az = height_above(ax, ay, radius);
    const double bx = x / width - 0.5, by = y / height - 0.5, bz = height_above(bx, by, radius);
    const double dx = bx - ax, dy = by - ay, dz = bz - az;
    const double chord = std::sqrt(dx * dx + dy * dy + dz * dz);
    if (chord < 1e-5)
        return;
    double u = ay * bz - az * by, v = az * bx - ax * bz, w = ax * by - ay * bx;
    const double length = std::sqrt(u * u + v * v + w * w);
    u /= length;
    v /= length;
    w /= length;
    const double angle = 2 * std::asin(std::clamp(chord / (2 * radius), -1.0, 1.0));
    const double s = std::sin(angle), c = std::cos(angle), t = 1 - c;
    const double r[3][3] = {{t * u * u + c, t * u * v + s * w, t * u * w - s * v},
                            {t * u * v - s * w, t * v * v + c, t * v * w + s * u},
                            {t * u * w + s * v, t * v * w - s * u, t * w * w + c}};
    double p[3], move[3];
    for (int k = 0; k < 3; ++k)
        p[k] = centre[0] * m[0][k] + centre[1] * m[1][k] + centre[2] * m[2][k] + m[3][k];
    for (int k = 0; k < 3; ++k)
        move[k] = p[k] - (p[0] * r[0][k] + p[1] * r[1][k] + p[2] * r[2][k]);
    for (int row = 0; row < 4; ++row)
    {
        const double m0 = m[row][0], m1 = m[row][1], m2 = m[row][2];
        for (int k = 0; k < 3; ++k)
            m[row][k] = m0 * r[0][k] + m1 * r[1][k] + m2 * r[2][k] + (row == 3 ? move[k] : 0);
    }
}

double nanoseconds_per_step(Clock::time_point start)
{
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / steps;
}

volatile double the_sink = 0;

double time_bare(const std::vector<gwMouseEvent>& events)
{
    double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    const double centre[3] = {0, 0, 0};
    double last_x = 10, last_y = 10;
    const auto start = Clock::now();
    for (const gwMouseEvent& event : events)
    {
        bare_step(last_x, last_y, event.x(), event.y(), centre, m);
        last_x = event.x();
        last_y = event.y();
    }
    const double result = nanoseconds_per_step(start);
    the_sink = the_sink + m[0][0];
    return result;
}

class Twiddled
{
public:
    explicit Twiddled(int allow_spinning)
    {
        the_view.camera().view_port_dc(the_renderer.window_box());
        the_hooks.allow_spinning(allow_spinning);
        the_hooks.draw_trackball_icon(0);
        auto* action = new grAction(grActionTrigger(gwMOUSE_BUTTON, 1, 0, ""), "trackball");
        action->bind(grToolDetail(&the_factory, 1));
        the_man.actions().add_last(action);
    }

    gwWindow* window() { return &the_window; }

    double time(const std::vector<gwMouseEvent>& events)
    {
        the_input.post(gwKeyEvent(&the_window, 10, 10, 0, gwPRESSED, gwMOUSE_BUTTON, 1));
        const auto start = Clock::now();
        for (const gwMouseEvent& event : events)
            the_input.post(event);
        const double result = nanoseconds_per_step(start);
        the_man.stop_twiddling();
        the_sink = the_sink + the_view.camera().orientation()(0, 0);
        return result;
    }

private:
    IdleHooks the_hooks;
    TrackballFactory the_factory{&the_hooks};
    gwHeadlessWindow the_window{width, height};
    dgTraceWindow the_surface{width, height};
    dgRenderer the_renderer{&the_surface, nullptr, &the_window};
    dgView the_view{&the_renderer};
    gwInput the_input;
    grTwiddleMan the_man{&the_input};
};
}

int main()
{
    Twiddled plain(0), spinning(1);
    const std::vector<gwMouseEvent> events = winding_drag(plain.window());
    double best_bare = 1e30, best_plain = 1e30, best_spinning = 1e30;
    for (int i = 0; i < repetitions; ++i)
    {
        best_bare = std::min(best_bare, time_bare(events));
        best_plain = std::min(best_plain, plain.time(events));
        best_spinning = std::min(best_spinning, spinning.time(events));
    }
    std::printf("bare arithmetic of a trackball step      %6.1f ns\n", best_bare);
    std::printf("through input, manager, tool and camera  %6.1f ns, %.2f times the bare arithmetic\n", best_plain,
                best_plain / best_bare);
    std::printf("the same with positions timed for spin   %6.1f ns, %.2f times the bare arithmetic\n", best_spinning,
                best_spinning / best_bare);
}
