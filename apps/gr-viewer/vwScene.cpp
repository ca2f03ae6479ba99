#include "vwScene.h"

#include "vwHooks.h"
#include "vwStatsBars.h"

#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewListUtils.h"

#include "apHighResTime.h"
#include "coCallList.h"
#include "dgStructure.h"
#include "dgView.h"
#include "gwDrawingArea.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr int gap_pixels = 2;                          // between the views of a grid
constexpr double isometric_tilt = -0.9553166181245092; // radians: minus the arc tangent of the square root of 2

// The overlay callback has no place for an object of its own.
vwScene* the_scene = nullptr;

// Turns of the first views about the z axis and then about the x axis of the view; further views start over.
const struct
{
    double z, x;                                                    // radians
} start_turns[] = {{std::numbers::pi / 4, isometric_tilt},          // isometric
                   {0, 0},                                          // from above
                   {0, -std::numbers::pi / 2},                      // from the front
                   {-std::numbers::pi / 2, -std::numbers::pi / 2}}; // from the right

dgViewcoDList all_views(const vwScene& scene)
{
    dgViewcoDList views;
    for (int i = 0; i < scene.n_views(); ++i)
        views.add_last(&scene.view(i));
    return views;
}
}

vwScene::vwScene(dgWindow* main, dgWindow* overlay, gwDrawingArea& area, const gwResourceDB& db, dgStructure& model,
                 const vwSceneSettings& settings)
    : the_area(area), the_renderer(main, overlay, &area), the_hooks(std::make_unique<vwHooks>(db, settings.framerate, settings.refresher)),
      the_start_time(apHighResTime::time())
{
    the_renderer.background_colour(gsColour(0.05, 0.06, 0.07));
    if (settings.stats)
        the_stats_bars = std::make_unique<vwStatsBars>(1 / the_hooks->framerate());
    for (int i = 0; i < settings.views; ++i)
        make_view(model, i);
    // One callback before and one after those of the tools: what lies between is the time of the event.
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::start_timing>(this));
    the_twiddling = std::make_unique<grStdTwiddling>(&area.input(), &db, the_hooks.get(), nullptr);
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::end_timing>(this));
    the_scene = this;
    grTwiddleOverlayCallback::register_callback(drawn);
    resized();
}

vwScene::~vwScene()
{
    the_twiddling.reset();
    grTwiddleOverlayCallback::register_callback(nullptr);
    the_scene = nullptr;
}

void vwScene::make_view(dgStructure& model, int number)
{
    ViewPair pair;
    pair.view = std::make_unique<dgView>(&the_renderer);
    pair.view->root(&model);
    pair.view->shading_context().graduated_background = 1;
    const auto& turns = start_turns[static_cast<std::size_t>(number) % std::size(start_turns)];
    dgCamera& camera = pair.view->camera();
    camera.rotate_view(gi_Z_AXIS, turns.z);
    camera.rotate_view(gi_X_AXIS, turns.x);
    pair.view->view_bbox();
    pair.companion = std::make_unique<grView>(pair.view.get());
    the_views.push_back(std::move(pair));
}

void vwScene::lay_out()
{
    const int columns = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(n_views()))));
    const int rows = (n_views() + columns - 1) / columns;
    const int width = std::max(the_area.width(), 1), height = std::max(the_area.height(), 1);
    // Edge i of n equal cells with a gap between them, of which the low cell starts at 0.
    const auto cell_start = [](int i, int n, int size) { return i * (size + gap_pixels) / n; };
    for (int i = 0; i < n_views(); ++i)
    {
        const int column = i % columns, row = rows - 1 - i / columns; // row 0 is the lowest
        const int low_x = cell_start(column, columns, width), low_y = cell_start(row, rows, height);
        // The last row may be short: its last view takes the rest.
        const int last_column = i == n_views() - 1 ? columns - 1 : column;
        const int high_x = cell_start(last_column + 1, columns, width) - gap_pixels - 1;
        const int high_y = cell_start(row + 1, rows, height) - gap_pixels - 1;
        dgCamera& camera = view(i).camera();
        camera.window_size(giVector2(width, height));
        camera.view_port_dc(giBox2(low_x, low_y, std::max(high_x, low_x), std::max(high_y, low_y)));
    }
}

void vwScene::resized()
{
    lay_out();
    // Views leave gaps that nobody else clears, in both buffers.
    for (int i = 0; i < 2; ++i)
    {
        the_renderer.select_buffer(dgBACK_BUFFER);
        the_renderer.erase(0);
        the_renderer.swap_buffers(dgSWAP_PLAIN);
    }
    redraw();
}

void vwScene::redraw()
{
    start_timing();
    grViewListUtils::refresh_views(all_views(*this), nullptr, nullptr);
    end_timing();
}

void vwScene::fit()
{
    for (const ViewPair& pair : the_views)
        pair.view->view_bbox();
    redraw();
}

grIdleAction vwScene::idle()
{
    start_timing();
    const grIdleAction action = the_twiddling->twiddle_man()->idle();
    end_timing();
    return action;
}

int vwScene::has_tool() const
{
    return the_twiddling->twiddle_man()->current_tool() != nullptr;
}

void vwScene::drawn(dgView& view)
{
    ++the_scene->the_frames_drawn;
    if (the_scene->the_stats_bars && &view == &the_scene->view(0))
        the_scene->the_stats_bars->draw(view, the_scene->the_frame_times);
}

void vwScene::start_timing()
{
    the_stopwatch = vwStopwatch();
    the_frames_before = the_frames_drawn;
}

void vwScene::end_timing()
{
    if (the_frames_drawn == the_frames_before)
        return;
    // Drawing is asynchronous: without this the time would be that of giving orders.
    the_renderer.finish();
    the_frame_times.add({apHighResTime::time_diff(the_start_time, apHighResTime::time()), the_stopwatch.seconds()});
}
