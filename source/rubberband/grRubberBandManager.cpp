#include "grRubberBandManager.h"

#include "grCanvasRegistry.h"
#include "grRubberBandItem.h"
#include "grRubberBandState.h"
#include "grRubberBandViewItem.h"
#include "grRubberBandWalk.h"

#include "apHighResTime.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgSelectedDriver.h"
#include "dgView.h"
#include "gsRGB.h"

#include <optional>
#include <ostream>

namespace
{
grRubberBandState& state()
{
    return grRubberBandState::instance();
}

// Calls act for every item of a renderer that is not cancelled, whatever act does to the list.
template <class Act>
void for_items(const dgRenderer* renderer, Act act)
{
    grRubberBandWalk walk;
    while (grRubberBandItem* item = walk.next())
        if (!item->cancelled() && item->renderer() == renderer)
            act(item);
}

void draw_temp_undrawn(const dgRenderer* renderer)
{
    for_items(renderer,
              [](grRubberBandItem* item)
              {
                  if (item->state() == grTEMP_UNDRAWN_RUBBER_BAND_ITEM)
                      item->draw(grDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_DO_NOT_SELECT_DRIVER);
              });
}
}

grRubberBandManager::grRubberBandManager()
{
    if (state().existence_counter++ > 0)
        return;
    state().settings = grRubberBandSettings();
    state().items = std::make_unique<coDList<grRubberBandItem*>>();
}

grRubberBandManager::~grRubberBandManager()
{
    if (--state().existence_counter > 0)
        return;
    clear();
    state().items.reset();
}

void grRubberBandManager::add(grRubberBandItem* item)
{
    if (state().items)
        state().items->add_last(item);
}

void grRubberBandManager::remove(grRubberBandItem* item)
{
    const int position = state().items ? state().items->find(item) : -1;
    if (position < 0)
        return;
    state().items->remove_at(position);
    ++state().removals;
    grRubberBandWalk::item_left(position);
}

void grRubberBandManager::clear()
{
    while (!empty())
        remove(state().items->last());
}

int grRubberBandManager::empty()
{
    return !state().items || state().items->empty();
}

int grRubberBandManager::item_in_list(const grRubberBandItem* item)
{
    return state().items && state().items->contains(const_cast<grRubberBandItem*>(item));
}

int grRubberBandManager::items_cancelled()
{
    grRubberBandWalk walk;
    while (const grRubberBandItem* item = walk.next())
        if (item->cancelled())
            return 1;
    return 0;
}

void grRubberBandManager::draw(grRubberBandItem* item, grRubberBandIt it)
{
    if (!item || item->cancelled() || state().settings.suspended)
        return;
    if (it == grDRAW_RUBBER_BAND_ITEM)
        state().draw_in_progress = 1;
    item->draw(it, grRUBBER_BAND_SELECT_DRIVER);
    state().draw_in_progress = 0;
}

void grRubberBandManager::redraw(dgRenderer* renderer)
{
    redraw(renderer, nullptr);
}

void grRubberBandManager::redraw(dgRenderer* renderer, const grRubberBandItem* except)
{
    const dgSelectedDriver driver(*renderer, 1);
    for_items(renderer,
              [&](grRubberBandItem* item)
              {
                  if (item != except)
                      item->draw(grDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_DO_NOT_SELECT_DRIVER);
              });
}

void grRubberBandManager::erased(dgRenderer* renderer)
{
    for_items(renderer,
              [](grRubberBandItem* item)
              {
                  if (item->the_state == grDRAWN_RUBBER_BAND_ITEM)
                      item->the_state = grTEMP_UNDRAWN_RUBBER_BAND_ITEM;
              });
}

void grRubberBandManager::temp_undraw(dgRenderer* renderer)
{
    if (empty())
        return;
    if (redraws_main_planes(renderer))
        state().remember(renderer, 0);
    else
    {
        state().saved_driver = renderer->current_driver_index();
        state().saved_renderer = renderer;
        renderer->select_driver(1);
        if (renderer_in_xor_mode(renderer))
        {
            temp_undraw_by_xor(renderer);
            return;
        }
        // Deliberate: the driver is given back after XOR alone. An overlay's stays selected, as after each drawing of
        // an item, so that callbacks that draw more on the overlay find it.
        if (!renderer_rubber_banding_in_main_planes(renderer))
            renderer->erase(1);
    }
    erased(renderer);
}

void grRubberBandManager::temp_undraw_by_xor(dgRenderer* renderer)
{
    bool renderer_is_gone = false;
    {
        const dgSelectedDriver driver(*renderer, 1);
        for_items(renderer,
                  [](grRubberBandItem* item)
                  {
                      if (item->state() != grDRAWN_RUBBER_BAND_ITEM)
                          return;
                      const int removals = state().removals;
                      item->draw(grUNDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_DO_NOT_SELECT_DRIVER);
                      // Drawing may have released the item.
                      if (state().removals == removals || item_in_list(item))
                          item->the_state = grTEMP_UNDRAWN_RUBBER_BAND_ITEM;
                  });
        renderer_is_gone = driver.renderer_is_gone();
    }
    if (!renderer_is_gone)
        end_draw(renderer, true, true);
}

void grRubberBandManager::update(dgRenderer* renderer)
{
    std::optional<dgSelectedDriver> driver;
    if (!redraws_main_planes(renderer))
        driver.emplace(*renderer, 1);
    draw_temp_undrawn(renderer);
}

void grRubberBandManager::to_be_deleted(dgRenderer* renderer)
{
    // Items that went with their view are told too: one of them may be in the middle of its drawing.
    grRubberBandWalk walk;
    while (grRubberBandItem* item = walk.next())
    {
        if (item->renderer() != renderer)
            continue;
        item->the_renderer_is_gone = true;
        item->cancel();
    }
    // Another renderer may come to have its address.
    if (state().last_renderer == renderer)
        state().remember(nullptr, 0);
    if (state().saved_renderer == renderer)
    {
        state().saved_renderer = nullptr;
        state().saved_driver = -1;
    }
    state().slow_set().remove(renderer);
    state().refresh_recorder().clear_times(renderer);
}

void grRubberBandManager::to_be_deleted(dgView* view)
{
    dgRenderer* overlay = nullptr; // on which items of the view lie
    grRubberBandWalk walk;
    while (grRubberBandItem* item = walk.next())
    {
        const auto* of_view = grRubberBandViewItem::ut_dynamic_cast(item);
        if (!of_view || of_view->view() != view)
            continue;
        if (!item->cancelled() && item->state() == grDRAWN_RUBBER_BAND_ITEM &&
            !renderer_rubber_banding_in_main_planes(item->renderer()))
            overlay = item->renderer();
        item->cancel();
    }
    // What lies in main planes goes with the picture of the view; nothing else clears the overlay.
    if (!overlay)
        return;
    overlay->erase(1);
    redraw_all_that_are_drawn(overlay, 1);
}

grRubberBandMode grRubberBandManager::mode(dgRenderer* renderer)
{
    if (!renderer_rubber_banding_in_main_planes(renderer))
        return grRUBBER_BAND_IN_OVERLAY_PLANES;
    return rubber_band_via_redraw(renderer) ? grRUBBER_BAND_IN_MAIN_PLANES : grRUBBER_BAND_VIA_XOR;
}

int grRubberBandManager::rubber_band_via_redraw(dgRenderer* renderer)
{
    const grRubberBandSettings& settings = state().settings;
    // Deliberate: a callback decides even when the flag has been turned off since; it was set to know better.
    if (settings.redraw_callback)
        return settings.redraw_callback(renderer, settings.redraw_callback_data);
    return settings.via_redraw ? redraws_fast_enough(renderer) : 0;
}

// Whether drawing the scene again is fast enough. The answer changes only while one single item is being drawn, so that
// items on the screen are taken off by the technique that put them there.
bool grRubberBandManager::redraws_fast_enough(dgRenderer* renderer)
{
    const grRubberBandSettings& settings = state().settings;
    if (!renderer_rubber_banding_in_main_planes(renderer))
        return true;
    const bool was_fast = !state().slow_set().contains(renderer);
    if (!state().draw_in_progress || !state().items || state().items->count() != 1)
        return was_fast;

    grRefreshRecorder& recorder = state().refresh_recorder();
    if (!was_fast)
    {
        double latest = 0;
        if (recorder.latest_time(renderer, latest) && recorder.current_time() - latest <= settings.slow_retry_time)
            return false;
        recorder.clear_times(renderer);
        state().slow_set().remove(renderer);
        return true;
    }
    double average = 0;
    int count = 0;
    recorder.average_frame_time(renderer, average, count);
    if (count <= 2 || 1 / settings.minimum_framerate > average)
        return true;
    state().slow_set().add(renderer);
    return false;
}

int grRubberBandManager::renderer_in_xor_mode(dgRenderer* renderer)
{
    state().remember(renderer, renderer->in_xor_mode());
    return state().last_in_xor_mode;
}

int grRubberBandManager::last_renderer_was_in_xor_mode()
{
    return state().last_in_xor_mode;
}

int grRubberBandManager::renderer_rubber_banding_in_main_planes(dgRenderer* renderer)
{
    return renderer->window(1) == renderer->window(0);
}

bool grRubberBandManager::redraws_main_planes(dgRenderer* renderer)
{
    // The decision is asked in any case: it may change what is known of the renderer.
    const int via_redraw = rubber_band_via_redraw(renderer);
    return via_redraw && renderer_rubber_banding_in_main_planes(renderer);
}

int grRubberBandManager::sort_out_rubber_banding_on_erase_and_render(dgRenderer* renderer, int& first, int& second)
{
    first = second = 0;
    if (!state().settings.do_redraw || empty())
        return 0;
    // Deliberate: the flag counts, not the decision for the renderer, which asking might change before a redraw.
    if (renderer_rubber_banding_in_main_planes(renderer) && state().settings.via_redraw)
        return 1;
    // Deliberate: the last renderer counts, whichever it was; callers use one technique for all.
    if (!state().last_renderer || !state().last_in_xor_mode)
    {
        second = 1;
        return 0;
    }
    first = 1;
    return 1;
}

gsColour grRubberBandManager::calculate_xor_colour(dgRenderer* renderer, const gsColour& wanted)
{
    if (!state().settings.calculate_colour_in_xor_mode)
        return wanted;
    // Deliberate: the point is not offset by the box's minimum; moving it would change the colours.
    const giBox2 box = renderer->window_box();
    const dgView* view = dgS::find_view(renderer, giPoint2((box.width() + 1) * 0.25, (box.height() + 1) * 0.25));
    if (!view)
        return wanted;
    const dgViewShadingContext& shading = view->shading_context();
    gsColour background = shading.background_colour;
    if (shading.graduated_background)
    {
        const gsColour &top = shading.top_colour, &bottom = shading.bottom_colour;
        background = gsColour(0.5 * top.red() + 0.5 * bottom.red(), 0.5 * top.green() + 0.5 * bottom.green(),
                              0.5 * top.blue() + 0.5 * bottom.blue());
    }
    gsRGB under, over;
    background.rgb(under);
    wanted.rgb(over);
    return gsColour((under.red ^ over.red) / 255.0, (under.green ^ over.green) / 255.0,
                    (under.blue ^ over.blue) / 255.0);
}

grRubberBandManager::DrawModes grRubberBandManager::start_draw(dgRenderer* renderer, bool select_driver)
{
    DrawModes modes;
    if (redraws_main_planes(renderer))
    {
        state().remember(renderer, 0);
        return modes;
    }
    if (select_driver)
    {
        state().saved_driver = renderer->current_driver_index();
        state().saved_renderer = renderer;
        renderer->select_driver(1);
    }
    modes.xor_mode = renderer_in_xor_mode(renderer);
    modes.overlay = !renderer_rubber_banding_in_main_planes(renderer);
    return modes;
}

// Deliberate: only XOR gives the driver back, see temp_undraw, and another renderer's saved one stays saved for it.
void grRubberBandManager::end_draw(dgRenderer* renderer, bool xor_mode, bool select_driver)
{
    if (!xor_mode || !select_driver)
        return;
    if (state().saved_renderer != renderer)
    {
        renderer->select_driver(0);
        return;
    }
    renderer->select_driver(state().saved_driver);
    state().saved_renderer = nullptr;
    state().saved_driver = -1;
}

void grRubberBandManager::redraw_all_that_are_drawn(dgRenderer* renderer, int overlay)
{
    // The scene under an overlay is whole, and is not to be drawn while an item has its hidden surfaces switched off.
    grCanvas* const canvas = overlay ? nullptr : gr_find_canvas(renderer);
    if (!canvas)
    {
        const dgSelectedDriver driver(*renderer, 1);
        for_items(renderer,
                  [](grRubberBandItem* item)
                  {
                      if (item->state() != grDRAWN_RUBBER_BAND_ITEM)
                          return;
                      item->the_state = grTEMP_UNDRAWN_RUBBER_BAND_ITEM;
                      item->draw(grDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_DO_NOT_SELECT_DRIVER);
                  });
        return;
    }

    const double start = apHighResTime::time();
    gr_erase_and_render_views(*canvas, renderer->window_box(), 1, 1);
    // Main planes are drawn with the driver that is selected already.
    const int rubber_band_driver = redraws_main_planes(renderer) ? renderer->current_driver_index() : 1;
    const dgSelectedDriver driver(*renderer, rubber_band_driver);
    draw_temp_undrawn(renderer);
    if (driver.renderer_is_gone())
        return;
    // Drawing is asynchronous: without this the time would be that of giving orders.
    renderer->finish();
    state().refresh_recorder().add_frame_time(renderer, apHighResTime::time_diff(start, apHighResTime::time()));
}

void grRubberBandManager::print(std::ostream& os)
{
    os << "grRubberBandManager {\n"
       << "existence counter for this class is " << state().existence_counter << '\n'
       << "do redraw flag is " << state().settings.do_redraw << '\n'
       << "last renderer is " << static_cast<const void*>(state().last_renderer) << '\n'
       << "last renderer in xor mode flag was " << state().last_in_xor_mode << '\n';
    const int count = state().items ? state().items->count() : 0;
    os << "  total of " << count << " grRubberBandItems\n";
    for (int i = 0; i < count; ++i)
    {
        const grRubberBandItem* item = (*state().items)[i];
        os << "  item " << i << " is " << static_cast<const void*>(item) << '\n';
        if (item)
            item->print(os);
        else
            os << "item is 0 !!\n";
    }
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grRubberBandManager&)
{
    grRubberBandManager::print(os);
    return os;
}
