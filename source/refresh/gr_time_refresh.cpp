#include "gr_time_refresh.h"

#include "apHighResTime.h"
#include "apWallClock.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grViewListUtils.h"
#include "grViewRefresherFast.h"

namespace
{
// The loop of the plain probes: each frame follows a change of the camera.
template <class Change>
void time_refresh(dgView* view, double duration, int& frames, double& elapsed, Change change)
{
    frames = 0;
    elapsed = 0;
    dgRenderer* renderer = view->renderer();
    if (!renderer)
        return;
    const int double_buffered = renderer->driver_capability(renderer->mode(), dgCAPABILITY_DOUBLE_BUFFERING);
    const double start = timedp();
    double now = start;
    while (now < start + duration)
    {
        if (double_buffered)
            renderer->select_buffer(dgBACK_BUFFER);
        ++frames;
        change();
        view->erase(dgERASE_ZBUFFER_YES);
        view->render_network(nullptr);
        if (double_buffered)
            renderer->swap_buffers(grViewListUtils::erase_on_swap_buffers());
        // Drawing is asynchronous: without this frames would be counted that are not there yet.
        renderer->finish();
        now = timedp();
    }
    if (double_buffered)
        renderer->select_buffer(dgFRONT_BUFFER);
    elapsed = now - start;
}
}

void gr_time_static_refresh(dgView* view, double duration, int& frames, double& elapsed)
{
    time_refresh(view, duration, frames, elapsed, [] {});
}

void gr_time_rotating_refresh(dgView* view, double duration, gi_Axis axis, double angle, int& frames, double& elapsed)
{
    time_refresh(view, duration, frames, elapsed, [&] { view->camera().rotate_view(axis, angle); });
}

void gr_time_zooming_refresh(dgView* view, double duration, const double* factors, int n_factors, int& frames,
                             double& elapsed)
{
    const double scale = view->camera().scale();
    const giBox2 window = view->camera().view_window();
    int next = 0;
    time_refresh(view, duration, frames, elapsed,
                 [&]
                 {
                     if (n_factors < 1)
                         return;
                     view->camera().scale(scale * factors[next]);
                     next = (next + 1) % n_factors;
                 });
    view->camera().view_window(window);
}

void gr_time_fast_rotating_refresh(dgView* view, double duration, gi_Axis axis, double angle, int& frames,
                                   double& elapsed)
{
    frames = 0;
    elapsed = 0;
    if (!view->renderer())
        return;
    grViewRefresherFast::graphics_state_changed();
    {
        grViewRefresherFast refresher({view});
        refresher.refresh();
        refresher.refresh();
        const double start = apHighResTime::time();
        double now = start;
        while (apHighResTime::time_diff(start, now) < duration)
        {
            ++frames;
            view->camera().rotate_view(axis, angle);
            refresher.refresh();
            now = apHighResTime::time();
        }
        elapsed = apHighResTime::time_diff(start, now);
        refresher.end_twiddle();
    }
    grViewRefresherFast::graphics_state_changed();
}

void gr_time_render_network(dgView* view, double& elapsed)
{
    elapsed = 0;
    dgRenderer* renderer = view->renderer();
    if (!renderer)
        return;
    view->erase(dgERASE_ZBUFFER_YES);
    renderer->finish();
    const double start = apHighResTime::time();
    view->render_network(nullptr);
    renderer->finish();
    elapsed = apHighResTime::time_diff(start, apHighResTime::time());
}

void gr_time_pick(dgView* view, double duration, int& frames, double& elapsed, int& picked, int mode, int largest_count,
                  int lines, int surfaces)
{
    frames = picked = 0;
    elapsed = 0;
    dgRenderer* renderer = view->renderer();
    if (!view->root() || !renderer)
        return;
    const dgPickSettings settings = renderer->pick_settings();
    renderer->pick_settings({largest_count, lines, surfaces});
    const double start = timedp();
    double now = start;
    while (now < start + duration)
    {
        ++frames;
        const dgPickAperture aperture(view->camera().view_port_dc());
        dgPickResult* result = view->pick_all(aperture, static_cast<dgPickMode>(mode));
        picked = result->count();
        result->release();
        now = timedp();
    }
    elapsed = now - start;
    renderer->pick_settings(settings);
}
