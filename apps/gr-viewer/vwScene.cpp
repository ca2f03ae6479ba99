#include "vwScene.h"

#include "vwHooks.h"
#include "vwSheet.h"
#include "vwStandardView.h"
#include "vwStatsBars.h"

#include "grCameraViewCache.h"
#include "grSelectionHover.h"
#include "grStdToolFactory.h"
#include "grStdTwiddling.h"
#include "grStdViewTwiddleTool.h"
#include "grTwiddleMan.h"
#include "grTwiddleOverlayCallback.h"
#include "grTwiddleTool.h"
#include "grView.h"
#include "grViewOperations.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewSmoother.h"
#include "gr_rubber_band.h"

#include "apHighResTime.h"
#include "coCallList.h"
#include "dgStructure.h"
#include "dgView.h"
#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwPositionalEvent.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int gap_pixels = 2; // between the views of a grid

// Beyond so many lines, edges are not drawn while a view moves.
constexpr long long most_moving_lines = 100000;
}

vwScene::vwScene(dgWindow* main, dgWindow* overlay, gwDrawingArea& area, const gwResourceDB& db, dgStructure& model,
                 const vwSceneSettings& settings)
    : the_area(area),
      the_canvas(main, settings.rubber_banding <= vwRUBBER_BAND_OVERLAY ? overlay : nullptr, &area, &db),
      the_hooks(std::make_unique<vwHooks>(db, settings.framerate, settings.refresher)),
      the_background(settings.background), the_axes(settings.axes), the_shows_edges(settings.edges),
      the_smoother(std::make_unique<grViewSmoother>(*the_canvas.renderer())), the_start_time(apHighResTime::time()),
      the_cursor(settings.cursor)
{
    // What is asked for wins over the resources, which the canvas has read.
    if (settings.rubber_banding != vwRUBBER_BAND_BY_RESOURCES)
        grRubberBandManager::rubber_band_via_redraw(settings.rubber_banding == vwRUBBER_BAND_REDRAW);
    renderer().background_colour(gsColour(0.05, 0.06, 0.07));
    renderer().accumulate(settings.smooth_edges);
    if (settings.stats)
        the_stats_bars = std::make_unique<vwStatsBars>(1 / the_hooks->framerate());
    the_hooks->structure(&model);
    the_hooks->selection(&the_selection);
    the_hooks->section(&the_section);
    if (settings.paper)
        make_sheet(model);
    for (int i = 0; i < settings.views && !settings.paper; ++i)
        make_view(model, i, !settings.independent && !settings.multi);
    // One callback before and one after those of the tools: what lies between is the time of the event.
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::start_timing>(this));
    the_twiddling = std::make_unique<grStdTwiddling>(&area.input(), &db, the_hooks.get(), nullptr);
    if (settings.multi)
    {
        grStdToolFactoryOptions tools;
        tools.use_multi_tools(1);
        the_twiddling->factory()->push_options(tools);
    }
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::follow_cursor>(this));
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::end_timing>(this));
    area.input().call_list().add(gwCR_event, coCallFunc::member<&vwScene::key_event>(this));
    background(the_background);
    grTwiddleOverlayCallback::register_callback(drawn, this);
    // How a view is fitted depends on its viewport.
    lay_out();
    fit_views();
    if (settings.perspective)
    {
        for (int i = settings.paper; i < n_views(); ++i)
            grViewOperations::perspective(view(i), 1);
        fit_views(); // from the eyes that the first fit has given places
    }
    if (settings.section.across)
        the_section.across(view(settings.paper), *settings.section.across, settings.section.offset);
    resized();
    save_cameras();
}

vwScene::~vwScene()
{
    the_hover.reset();
    the_twiddling.reset();
    gr_set_cursor_echo_type(0, &renderer());
    grTwiddleOverlayCallback::register_callback(nullptr);
}

void vwScene::make_view(dgStructure& model, int number, int follows)
{
    auto view = std::make_unique<dgView>(&renderer());
    view->root(&model);
    view->shading_context().graduated_background = 1;
    the_selection.add_view(view.get());
    the_section.add_view(view.get());
    vw_standard_view(*view, number);
    // A companion with a parent keeps the placement that the cameras have to each other now.
    grView* parent = follows && number > 0 ? the_canvas.companion(0) : nullptr;
    auto companion = std::make_unique<grView>(view.get(), parent);
    the_canvas.add_view(std::move(view), std::move(companion));
}

// The sheet first, so that its views lie over it.
void vwScene::make_sheet(dgStructure& model)
{
    the_sheet = std::make_unique<vwSheet>();
    auto sheet = std::make_unique<dgView>(&renderer());
    sheet->root(&the_sheet->root());
    sheet->shading_context().background_colour = gsColour(0.35, 0.37, 0.40);
    dgCamera& camera = sheet->camera();
    camera.view_window(vwSheet::box());
    camera.zoom(1.03);
    camera.front_back_plane(1, -1);
    auto companion = std::make_unique<grViewPaperParent>(sheet.get());
    grViewPaperParent* parent = companion.get();
    the_canvas.add_view(std::move(sheet), std::move(companion));
    for (int i = 0; i < vwSheet::n_fields; ++i)
    {
        auto field = std::make_unique<dgView>(&renderer());
        field->root(&model);
        field->shading_context().background_colour = gsColour(0.97, 0.97, 0.95);
        the_selection.add_view(field.get());
        the_section.add_view(field.get());
        vw_standard_view(*field, i);
        auto child = std::make_unique<grViewPaperChild>(field.get(), parent);
        the_canvas.add_view(std::move(field), std::move(child));
    }
}

// The way back to the start, for the tool that steps through the cameras.
void vwScene::save_cameras()
{
    for (int i = 0; i < n_views(); ++i)
        if (grCameraViewCache* cache = grStdViewTwiddleTool::camera_cache(&view(i)))
            cache->push(view(i));
}

void vwScene::lay_out_sheet()
{
    const int width = std::max(the_area.width(), 1), height = std::max(the_area.height(), 1);
    const dgCamera& sheet = view(0).camera();
    view(0).camera().window_size(giVector2(width, height));
    view(0).camera().view_port_dc(giBox2(0, 0, width - 1, height - 1));
    const auto pixel = [&](const giPoint2& p)
    {
        giPoint3 device;
        sheet.transform(giPoint3(p.x(), p.y(), 0), device, dgSPACE_WORLD, dgSPACE_DEVICE);
        return giPoint2(std::round(device.x()), std::round(device.y()));
    };
    for (int i = 0; i < vwSheet::n_fields; ++i)
    {
        const giPoint2 low = pixel(vwSheet::field(i).low()), high = pixel(vwSheet::field(i).high());
        dgCamera& camera = view(i + 1).camera();
        camera.window_size(giVector2(width, height));
        camera.view_port_dc(giBox2(low.x(), low.y(), std::max(high.x(), low.x()), std::max(high.y(), low.y())));
    }
}

void vwScene::lay_out()
{
    if (the_sheet)
        return lay_out_sheet();
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
    start_timing();
    the_canvas.resized();
    end_timing();
}

void vwScene::redraw()
{
    start_timing();
    the_canvas.redraw();
    end_timing();
}

void vwScene::fit()
{
    fit_views();
    save_cameras();
    redraw();
}

void vwScene::fit_views()
{
    for (int i = the_sheet ? 1 : 0; i < n_views(); ++i)
        // Those that follow move along, and keep where they are put next.
        grViewOperations::fit(view(i));
}

void vwScene::stats_font(int slot)
{
    if (the_stats_bars)
        the_stats_bars->font(slot);
}

void vwScene::title(const std::string& text, int font_slot)
{
    if (!the_sheet)
        return;
    the_sheet->title(text, renderer(), font_slot);
    redraw();
}

grIdleAction vwScene::idle()
{
    start_timing();
    const grIdleAction action = the_twiddling->twiddle_man()->idle();
    end_timing();
    if (action != grIDLE_DONE || the_twiddling->twiddle_man()->current_tool_state() == grTWID_TWIDDLING)
        return action;
    const int drawn = the_frames_drawn;
    the_smooths = the_smoother->idle() != grIDLE_DONE;
    the_frames_drawn = drawn; // a mean is no frame
    return the_smooths ? grIDLE_AGAIN : grIDLE_DONE;
}

int vwScene::has_tool() const
{
    return the_twiddling->twiddle_man()->current_tool() != nullptr;
}

void vwScene::parts(const std::vector<vwPart>& parts, const giXform3& placing)
{
    the_parts = &parts;
    the_placing = placing;
    the_overlay = std::make_unique<vwOverlay>(parts, the_selection);
    the_overlay->axes(the_axes);
    the_edges = std::make_unique<vwEdges>(parts, the_selection);
    background(the_background);
}

void vwScene::hover()
{
    the_hover = std::make_unique<grSelectionHover>(*the_twiddling->twiddle_man(), *the_hooks);
}

void vwScene::forget_parts()
{
    the_twiddling->twiddle_man()->stop_twiddling();
    the_selection.hover({});
    the_selection.show_all();
    the_selection.clear();
    the_edges = std::make_unique<vwEdges>(*the_parts, the_selection);
}

void vwScene::background(vwBackground background)
{
    the_background = background;
    for (int i = the_sheet ? n_views() : 0; i < n_views(); ++i)
    {
        dgViewShadingContext& shading = view(i).shading_context();
        const dgViewShadingContext usual;
        shading.top_colour = background == vwBACKGROUND_DARK    ? usual.top_colour
                             : background == vwBACKGROUND_LIGHT ? gsColour(0.80, 0.84, 0.89)
                                                                : gsColour(1, 1, 1);
        shading.bottom_colour = background == vwBACKGROUND_DARK    ? usual.bottom_colour
                                : background == vwBACKGROUND_LIGHT ? gsColour(0.96, 0.97, 0.98)
                                                                   : gsColour(1, 1, 1);
    }
    if (the_overlay)
        the_overlay->dark(background != vwBACKGROUND_DARK && !the_sheet);
}

void vwScene::drawn(dgView& view, void* scene)
{
    static_cast<vwScene*>(scene)->draw_over(view);
}

void vwScene::draw_edges(dgView& drawn)
{
    // The end of the tools may draw.
    const grTwiddleTool* tool = the_twiddling ? the_twiddling->twiddle_man()->current_tool() : nullptr;
    const bool moving = tool && tool->state() == grTWID_TWIDDLING;
    if (the_edges && the_shows_edges && drawn.root() == the_hooks->identify_structure() &&
        !(moving && the_edges->n_lines() > most_moving_lines))
        the_edges->draw(drawn, the_placing);
}

void vwScene::draw_over(dgView& drawn)
{
    ++the_frames_drawn;
    draw_edges(drawn);
    if (&drawn != &view(0))
        return;
    if (the_overlay)
        the_overlay->draw(drawn);
    if (the_stats_bars)
        the_stats_bars->draw(drawn, the_frame_times);
}

void vwScene::key_event(void*, void* data)
{
    const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&gwInput::event(data));
    if (!key || key->transition() != gwPRESSED || !the_overlay)
        return;
    vwOverlay& over = *the_overlay;
    if (key->key_type() == gwOTHER_KEY && key->key_number() == gwKEY_UP_ARROW)
        return select_next(-1);
    if (key->key_type() == gwOTHER_KEY && key->key_number() == gwKEY_DOWN_ARROW)
        return select_next(1);
    if (key->key_type() != gwFUNCTION_KEY)
        return;
    switch (key->key_number())
    {
    case 1: over.help(!over.help()); break;
    case 2: over.axes(!over.axes()); break;
    case 3: the_shows_edges = !the_shows_edges; break;
    case 4: over.part_list(!over.part_list()); break;
    case 6: background(static_cast<vwBackground>((the_background + 1) % 3)); break;
    default: return;
    }
    redraw();
}

// The next part of the list becomes the one that is selected.
void vwScene::select_next(int step)
{
    const int count = static_cast<int>(the_parts->size());
    if (!count)
        return;
    int next = step > 0 ? 0 : count - 1;
    for (int i = 0; i < count; ++i)
        if (the_selection.is_selected((*the_parts)[static_cast<std::size_t>(i)].path))
            next = (i + step + count) % count;
    the_selection.select({(*the_parts)[static_cast<std::size_t>(next)].path});
}

// Called after the tools, when what they have drawn is on the screen.
void vwScene::follow_cursor(void*, void* data)
{
    const gwPositionalEvent* event = the_cursor ? gwPositionalEvent::ut_dynamic_cast(&gwInput::event(data)) : nullptr;
    if (!event)
        return;
    const grTwiddleTool* tool = the_twiddling->twiddle_man()->current_tool();
    if (tool && tool->state() == grTWID_TWIDDLING && grRubberBandManager::mode(&renderer()) == grRUBBER_BAND_VIA_XOR)
    {
        // Sides of a box that is dragged out lie on the cross-hair, and by exclusive or neither would be seen.
        gr_undraw_rubber_banding();
        return;
    }
    gr_cursor_echo(event->x(), event->y(), &renderer());
    // The echo begins where the pointer is first seen.
    if (gr_query_cursor_echo_type() == 0)
        gr_set_cursor_echo_type(1, &renderer());
}

// Before whatever events, idle calls and redraws draw.
void vwScene::start_timing()
{
    the_smooths = 0;
    the_stopwatch = vwStopwatch();
    the_frames_before = the_frames_drawn;
}

void vwScene::end_timing()
{
    if (the_frames_drawn == the_frames_before)
        return;
    // Drawing is asynchronous: without this the time would be that of giving orders.
    renderer().finish();
    the_frame_times.add({apHighResTime::time_diff(the_start_time, apHighResTime::time()), the_stopwatch.seconds()});
}
