#include "grViewSmoother.h"

#include "apHighResTime.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgSelectedDriver.h"
#include "dgView.h"
#include "giVector2.h"
#include "giXform3.h"
#include "grInstalledAction.h"
#include "grRubberBandManager.h"
#include "grRubberBandsOff.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewRefresherFast.h"
#include "grWorkPace.h"
#include "gsStructureSlicer.h"

#include <algorithm>
#include <bit>
#include <vector>

namespace
{
// A call ends when it has taken so long, and a step that it has begun takes as long again.
constexpr double step_seconds = 0.0025;

// Pixels, and triangles, lines and points. The most of these is so little that a slice of large ones after many out of
// view takes no more than some steps; more at a time is hardly faster.
constexpr int first_pixels = 1 << 16, most_pixels = 1 << 26, first_prims = 64, most_prims = 1 << 15;

// What a view shows, as far as it may change without being drawn.
struct Shown
{
    explicit Shown(dgView& of)
        : view(&of), root(of.root()), network(root ? root->network_stamp() : 0), orientation(of.camera().orientation()),
          projection(of.camera().projection_transform()), port(of.camera().view_port_dc()),
          hlhsr_mode(of.shading_context().hlhsr_mode), graduated(of.shading_context().graduated_background),
          background(of.shading_context().background_colour), top(of.shading_context().top_colour),
          bottom(of.shading_context().bottom_colour)
    {
        const grView* companion = grView::contains(view);
        hidden = companion && companion->hidden();
        transparent = companion && companion->background() == grVIEW_BACKGROUND_TRANSPARENT;
    }
    bool operator==(const Shown&) const = default;
    bool lies_on_nothing() const { return hidden && transparent; }

    dgView* view;
    dgStructure* root;
    unsigned long long network;
    giXform3 orientation, projection;
    giBox2 port;
    int hlhsr_mode, graduated;
    gsColour background, top, bottom;
    bool hidden = false, transparent = false;
};
using AllShown = std::vector<Shown>;

bool same_views(const AllShown& a, const AllShown& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Shown& one, const Shown& other) { return one.view == other.view; });
}

bool contains(const giBox2& box, const giBox2& other)
{
    return box.contains(other.low()) && box.contains(other.high());
}

// Whether every view is drawn on something that is drawn too.
bool all_on_ground(const AllShown& views)
{
    for (auto view = views.begin(); view != views.end(); ++view)
        if (view->transparent && !view->hidden &&
            std::none_of(views.begin(), view,
                         [&](const Shown& under) { return !under.transparent && contains(under.port, view->port); }))
            return false;
    return true;
}

// Moves a renderer's pictures for the life of the object.
class Shifted
{
public:
    Shifted(dgRenderer& renderer, const giVector2& pixels) : the_renderer(renderer) { renderer.picture_shift(pixels); }
    ~Shifted() { the_renderer.picture_shift(giVector2(0, 0)); }
    Shifted(const Shifted&) = delete;
    Shifted& operator=(const Shifted&) = delete;

private:
    dgRenderer& the_renderer;
};
}

class grViewSmoother::Work
{
public:
    explicit Work(dgRenderer& renderer) : the_renderer(renderer) {}

    grIdleAction idle();
    void restart();
    int complete() const { return the_phase == COMPLETE; }

private:
    enum Phase
    {
        DRAWING,
        ADDING,
        AVERAGING,
        COMPLETE
    };
    bool allowed() const;
    AllShown shown() const;
    bool may_be_drawn() const;
    void step();
    bool is_there(dgView& view) const { return dgS::views().contains(&view) && view.renderer() == &the_renderer; }
    void draw_slice();
    void next_view();
    void add_rows();
    void average_rows();
    void show();
    template <class Do>
    bool do_rows(Do work);
    template <class Do>
    double timed(Do work);

    dgRenderer& the_renderer;
    AllShown the_shown; // the lowest view first
    giBox2 the_window;
    unsigned long long the_picture = 0; // the renderer's stamp after the last call
    Phase the_phase = DRAWING;
    bool the_working = false;
    giBox2 the_unable; // the window of which there can be no sums

    int the_number = 0; // of the picture
    std::size_t the_view = 0;
    std::unique_ptr<gsStructureSlicer> the_slicer; // null before the view's first slice
    int the_row = 0;                               // the next one
    grWorkPace the_prims{first_prims, most_prims}, the_added{first_pixels, most_pixels},
        the_averaged{first_pixels, most_pixels};
};

bool grViewSmoother::Work::allowed() const
{
    return the_renderer.accumulate() &&
           the_renderer.driver_capability(the_renderer.mode(), dgCAPABILITY_DOUBLE_BUFFERING) &&
           the_renderer.driver_capability(the_renderer.mode(), dgCAPABILITY_ACCUMULATION) &&
           the_unable != the_renderer.window_box();
}

AllShown grViewSmoother::Work::shown() const
{
    AllShown found;
    for (dgView* view : dgS::views())
        if (view->renderer() == &the_renderer)
            found.emplace_back(*view);
    std::erase_if(found, [](const Shown& view) { return view.lies_on_nothing(); });
    return found;
}

bool grViewSmoother::Work::may_be_drawn() const
{
    dgViewcoDList views;
    for (const Shown& shown : the_shown)
        views.add_last(shown.view);
    return !grViewRefresherFast::idle_slices_forbidden(views) && all_on_ground(the_shown);
}

void grViewSmoother::Work::restart()
{
    the_phase = DRAWING;
    the_number = 0;
    the_view = 0;
    the_slicer.reset();
}

grIdleAction grViewSmoother::Work::idle()
{
    if (the_working || !allowed())
        return grIDLE_DONE;
    AllShown now = shown();
    const giBox2 window = the_renderer.window_box();
    if (now != the_shown || window != the_window || the_picture != the_renderer.picture_stamp())
    {
        the_shown = std::move(now);
        the_window = window;
        the_picture = the_renderer.picture_stamp();
        restart();
    }
    if (the_phase == COMPLETE || !may_be_drawn())
        return grIDLE_DONE;
    the_working = true;
    {
        const dgSelectedDriver main_driver(the_renderer, 0);
        const double start = apHighResTime::time();
        do
            step();
        while (the_phase != COMPLETE && apHighResTime::time_diff(start, apHighResTime::time()) < step_seconds);
        the_renderer.select_buffer(dgFRONT_BUFFER);
    }
    the_working = false;
    // Drawing fits planes. What else is changed by what is drawn is not drawn again for that: it might never end.
    now = shown();
    if (!same_views(now, the_shown))
        restart();
    the_shown = std::move(now);
    the_picture = the_renderer.picture_stamp();
    return the_phase == COMPLETE ? grIDLE_DONE : grIDLE_AGAIN;
}

void grViewSmoother::Work::step()
{
    the_renderer.select_buffer(dgBACK_BUFFER);
    switch (the_phase)
    {
    case DRAWING: draw_slice(); break;
    case ADDING: add_rows(); break;
    case AVERAGING: average_rows(); break;
    case COMPLETE: break;
    }
}

// Drawing is asynchronous: without waiting slices would pile up before the next event.
template <class Do>
double grViewSmoother::Work::timed(Do work)
{
    const double start = apHighResTime::time();
    work();
    the_renderer.finish();
    return apHighResTime::time_diff(start, apHighResTime::time());
}

void grViewSmoother::Work::draw_slice()
{
    if (the_view == the_shown.size())
    {
        the_phase = ADDING;
        the_row = 0;
        return;
    }
    const Shown& shown = the_shown[the_view];
    // What was drawn just now may have changed that.
    if (!is_there(*shown.view))
        return next_view();
    dgView& view = *shown.view;
    if (!the_slicer && !shown.transparent)
    {
        const Shifted shifted(the_renderer, shift(the_number)); // what is drawn at once too
        view.erase(dgERASE_ZBUFFER_YES);
    }
    if (shown.hidden || !view.root())
        return next_view();
    if (!the_slicer)
        the_slicer = std::make_unique<gsStructureSlicer>(the_prims.amount());
    the_slicer->per_slice(the_prims.amount());
    the_slicer->next_slice();
    const double taken = timed(
        [&]
        {
            const Shifted shifted(the_renderer, shift(the_number));
            const grInstalledAction installed(the_renderer, the_slicer.get());
            view.render_network(nullptr);
        });
    const bool more = the_slicer->another_slice_needed();
    the_prims.took(taken, step_seconds, more);
    if (!more)
        next_view();
}

void grViewSmoother::Work::next_view()
{
    the_slicer.reset();
    ++the_view;
}

// Works on the next rows of the window; true when these were the last.
template <class Do>
bool grViewSmoother::Work::do_rows(Do work)
{
    grWorkPace& pace = the_phase == ADDING ? the_added : the_averaged;
    const int rows = std::max(pace.amount() / static_cast<int>(the_window.width() + 1), 1);
    const int end = static_cast<int>(the_window.high().y()) + 1;
    const giBox2 box(the_window.low().x(), the_row, the_window.high().x(), std::min(the_row + rows, end) - 1);
    pace.took(timed([&] { work(box); }), step_seconds, the_row + rows <= end);
    the_row += rows;
    return the_row >= end;
}

void grViewSmoother::Work::add_rows()
{
    int added = 1;
    const bool last = do_rows([&](const giBox2& box) { added = the_renderer.add_to_sums(box, the_number == 0); });
    if (!added)
    {
        the_unable = the_window;
        the_phase = COMPLETE;
    }
    else if (last)
    {
        ++the_number;
        the_row = 0;
        the_view = 0;
        the_phase = the_number > 1 && std::has_single_bit(static_cast<unsigned>(the_number)) ? AVERAGING : DRAWING;
    }
}

void grViewSmoother::Work::average_rows()
{
    if (!do_rows([this](const giBox2& box) { the_renderer.put_mean(box, the_number); }))
        return;
    the_phase = the_number == n_pictures ? COMPLETE : DRAWING;
    show();
}

void grViewSmoother::Work::show()
{
    for (const Shown& shown : the_shown)
        if (!shown.hidden && is_there(*shown.view))
            grTwiddleOverlayCallback::call_callback(*shown.view);
    const dgRenderercoDList renderers{&the_renderer};
    grRubberBandsOff rubber_bands(renderers);
    the_renderer.select_buffer(dgFRONT_BUFFER);
    // On an overlay they lie over everything anyway.
    if (grRubberBandManager::renderer_rubber_banding_in_main_planes(&the_renderer))
        rubber_bands.take_off_all();
    for (const Shown& shown : the_shown)
        the_renderer.show_back_buffer(shown.port);
}

grViewSmoother::grViewSmoother(dgRenderer& renderer) : the_work(std::make_unique<Work>(renderer)) {}

grViewSmoother::~grViewSmoother() = default;

grIdleAction grViewSmoother::idle()
{
    return the_work->idle();
}

void grViewSmoother::restart()
{
    the_work->restart();
}

int grViewSmoother::complete() const
{
    return the_work->complete();
}

giVector2 grViewSmoother::shift(int picture)
{
    constexpr int sixteenths[n_pictures][2] = {{1, -3}, {-1, 3}, {7, -7}, {-5, 5}, {5, 1}, {-3, -5}, {-7, -1}, {3, 7}};
    return giVector2(sixteenths[picture][0] / 16.0, sixteenths[picture][1] / 16.0);
}
