#include "grCanvas.h"

#include "grCanvasRegistry.h"
#include "grStringConverter.h"
#include "grTwiddleOverlayCallback.h"
#include "grUncovered.h"
#include "grView.h"
#include "grViewListUtils.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "dgWidgetWindow.h"
#include "dgWindow.h"
#include "gsColour.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace
{
// Never destroyed: a canvas may be a static object.
std::vector<grCanvas*>& all_canvases()
{
    static auto* const canvases = new std::vector<grCanvas*>;
    return *canvases;
}

bool covers(const giBox2& box, const giBox2& other)
{
    return box.contains(other.low()) && box.contains(other.high());
}

// The entry of a view among those of a canvas; their end when it is not there.
template <class Entries>
auto find_entry(Entries& entries, const dgView* view)
{
    return std::find_if(entries.begin(), entries.end(), [=](const auto& entry) { return entry.view.get() == view; });
}

// Hands a resource that is there and can be converted to a setter.
template <class Value>
void pass_on(const gwResourceDB& db, const char* key, int (*convert)(const utString&, Value&), void (*set)(Value))
{
    utString text;
    Value value{};
    if (db.get_resource(key, text) && convert(text, value))
        set(value);
}

void set_slow_retry_time(double seconds)
{
    if (seconds > 0)
        grRubberBandManager::slow_retry_time(seconds);
}

void set_minimum_framerate(double frames_per_second)
{
    if (frames_per_second > 0)
        grRubberBandManager::minimum_framerate(frames_per_second);
}
}

grCanvas* gr_find_canvas(dgRenderer* renderer)
{
    return grCanvas::find_canvas(renderer);
}

void gr_erase_and_render_views(grCanvas& canvas, const giBox2& box, int erase, int render)
{
    canvas.erase_and_render_views(box, erase, render);
}

grCanvas::grCanvas(const gwResourceDB* db)
{
    all_canvases().push_back(this);
    if (db)
        read_resources(*db);
}

grCanvas::grCanvas(dgWindow* main, dgWindow* overlay, const gwWindow* input_window, const gwResourceDB* db)
{
    all_canvases().push_back(this);
    windows(main, overlay, input_window);
    if (db)
        read_resources(*db);
}

grCanvas::~grCanvas()
{
    remove_renderer();
    std::erase(all_canvases(), this);
}

void grCanvas::windows(dgWindow* main, dgWindow* overlay, const gwWindow* input_window)
{
    remove_renderer();
    if (main)
    {
        the_renderer = std::make_unique<dgRenderer>(main, overlay, input_window);
        the_width = main->width();
        the_height = main->height();
    }
}

void grCanvas::take_window(std::unique_ptr<dgWindow> window)
{
    the_windows.push_back(std::move(window));
}

dgView& grCanvas::add_view()
{
    auto view = std::make_unique<dgView>(the_renderer.get());
    auto companion = std::make_unique<grView>(view.get());
    return add_view(std::move(view), std::move(companion));
}

dgView& grCanvas::add_view(std::unique_ptr<dgView> view, std::unique_ptr<grView> companion)
{
    the_views.push_back({std::move(view), std::move(companion), giBox2(), giBox2()});
    return *the_views.back().view;
}

int grCanvas::remove_view(dgView* view)
{
    const auto found = find_entry(the_views, view);
    if (found == the_views.end())
        return 0;
    grRubberBandManager::to_be_deleted(view);
    // Out of the list first: whoever is told of the end of the view no longer finds it here.
    const Entry entry = std::move(*found);
    the_views.erase(found);
    return 1;
}

void grCanvas::remove_views()
{
    while (!the_views.empty())
        remove_view(the_views.back().view.get());
}

void grCanvas::remove_renderer()
{
    remove_views();
    if (!the_renderer)
        return;
    grRubberBandManager::to_be_deleted(the_renderer.get());
    the_renderer.reset();
}

grCanvas* grCanvas::find_canvas(const dgRenderer* renderer)
{
    for (grCanvas* canvas : all_canvases())
        if (renderer && canvas->renderer() == renderer)
            return canvas;
    return nullptr;
}

void grCanvas::erase_and_render_views(const giBox2& device_box, int erase, int render)
{
    if (!the_renderer)
        return;
    const giBox2 window_box = the_renderer->window_box();
    const int double_buffered = the_renderer->driver_capability(the_renderer->mode(), dgCAPABILITY_DOUBLE_BUFFERING);
    if (erase && double_buffered && covers(device_box, window_box))
    {
        the_renderer->select_buffer(dgBACK_BUFFER);
        // Rubber bands reach between the views too.
        if (std::none_of(the_views.begin(), the_views.end(),
                         [&](const Entry& entry) { return covers(entry.view->camera().view_port_dc(), window_box); }))
            the_renderer->erase(0);
        draw_views(window_box, 1, render);
        the_renderer->swap_buffers(grViewListUtils::erase_on_swap_buffers());
        // The buffer that was seen still has them; refreshers draw views over it, but nothing between them.
        gr_erase_between_views(*the_renderer, window_box);
        the_renderer->select_buffer(dgFRONT_BUFFER);
        // An item that counts as erased is not undrawn: it would stay on an overlay that was left as it is.
        if (!grRubberBandManager::empty() &&
            !grRubberBandManager::renderer_rubber_banding_in_main_planes(the_renderer.get()))
            the_renderer->erase(1);
        grRubberBandManager::erased(the_renderer.get());
        return;
    }
    // Outside the box the picture stays, and there items must be taken off in their own way.
    grRubberBandManager::temp_undraw(the_renderer.get());
    the_renderer->select_buffer(dgFRONT_BUFFER);
    if (erase)
        gr_erase_between_views(*the_renderer, device_box);
    the_renderer->clip(device_box);
    draw_views(device_box, erase, render);
    the_renderer->clip(giBox2());
}

void grCanvas::draw_views(const giBox2& device_box, int erase, int render) const
{
    std::vector<dgView*> views;
    for (const Entry& entry : the_views)
        views.push_back(entry.view.get());
    for (dgView* view : views)
    {
        // The overlay callback may have removed it.
        const auto entry = find_entry(the_views, view);
        if (entry == the_views.end() || !view->camera().view_port_dc().overlap(device_box))
            continue;
        const grView* companion = entry->companion.get();
        if (erase && !(companion && companion->background() == grVIEW_BACKGROUND_TRANSPARENT))
            view->erase(dgERASE_ZBUFFER_YES);
        if (!render || (companion && companion->hidden()))
            continue;
        view->render_network(nullptr);
        grTwiddleOverlayCallback::call_callback(*view);
    }
}

void grCanvas::redraw()
{
    if (!the_renderer)
        return;
    dgViewcoDList views; // drawn from its end
    for (const Entry& entry : the_views)
        views.add_first(entry.view.get());
    grViewListUtils::refresh_views_and_rubber_banding(views, dgRenderercoDList{the_renderer.get()});
}

void grCanvas::resize(int width, int height)
{
    if (!the_renderer || width < 1 || height < 1)
        return;
    dgWindow* const main = the_renderer->window(0);
    if (auto* widget = dynamic_cast<dgWidgetWindow*>(main);
        widget && (main->width() != width || main->height() != height))
        widget->resize(width, height);
    for (Entry& entry : the_views)
    {
        dgCamera& camera = entry.view->camera();
        const giBox2& port = camera.view_port_dc();
        // Taken anew only where the application has moved it: small sizes round.
        if (!(port == entry.viewport))
            entry.shares = giBox2(port.low().x() / the_width, port.low().y() / the_height,
                                  (port.high().x() + 1) / the_width, (port.high().y() + 1) / the_height);
        const giBox2& shares = entry.shares;
        const double low_x = std::round(shares.low().x() * width), low_y = std::round(shares.low().y() * height);
        entry.viewport = giBox2(low_x, low_y, std::max(std::round(shares.high().x() * width) - 1, low_x),
                                std::max(std::round(shares.high().y() * height) - 1, low_y));
        camera.view_port_dc(entry.viewport);
        camera.window_size(giVector2(width, height));
    }
    the_width = width;
    the_height = height;
    resized();
}

void grCanvas::resized()
{
    if (!the_renderer)
        return;
    for (int i = 0; i < 2; ++i)
    {
        the_renderer->select_buffer(dgBACK_BUFFER);
        the_renderer->erase(0);
        the_renderer->swap_buffers(dgSWAP_PLAIN);
    }
    grRubberBandManager::erased(the_renderer.get());
    redraw();
}

void grCanvas::read_resources(const gwResourceDB& db)
{
    utString text;
    int xor_rubber_banding = 1;
    if (db.get_resource("xor_rubberbanding", text) && grStringConverter::to_bool(text, xor_rubber_banding) &&
        !xor_rubber_banding &&
        (!the_renderer || grRubberBandManager::renderer_rubber_banding_in_main_planes(the_renderer.get())))
        grRubberBandManager::rubber_band_via_redraw(1);

    const char* const retry_key = "slow_retry_time_rubberbanding";
    pass_on(db, retry_key, grStringConverter::to_double, set_slow_retry_time);
    // Deliberate: the minimum frame rate comes from the same key; resource files in use count on it.
    pass_on(db, retry_key, grStringConverter::to_double, set_minimum_framerate);

    gsColour colour;
    if (db.get_resource("xor_colour", text) && grStringConverter::to_colour(text, colour))
        grRubberBandManager::rubber_band_colour(colour);
    const auto to_bool = grStringConverter::to_bool;
    pass_on<int>(db, "set_default_colour_in_xor_mode", to_bool, grRubberBandManager::set_default_colour_in_xor_mode);
    pass_on<int>(db, "calculate_colour_in_xor_mode", to_bool, grRubberBandManager::calculate_colour_in_xor_mode);
    pass_on<int>(db, "xor_mode_with_stencil_planes", to_bool, grRubberBandManager::set_xor_mode_with_stencil_planes);
    // Deliberate: the value has no effect; files in use set it either way, and an overlay that is there is used.
    pass_on<int>(db, "overlay_rubberbanding", to_bool, [](int) {});
}

void grCanvas::print(std::ostream& os) const
{
    os << "grCanvas {\n"
       << "  renderer is " << static_cast<const void*>(the_renderer.get()) << '\n'
       << "  n_views is " << n_views() << '\n';
    for (int i = 0; i < n_views(); ++i)
        os << "  view " << i << " is " << static_cast<const void*>(&view(i)) << '\n';
    os << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grCanvas& canvas)
{
    canvas.print(os);
    return os;
}
