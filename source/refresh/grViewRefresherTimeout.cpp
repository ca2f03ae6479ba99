#include "grViewRefresherTimeout.h"

#include "apHighResTime.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewRefresherFull.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(grViewRefresherTimeout, grViewRefresher);

grViewRefresherTimeout::grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache,
                                               double frame_rate, int point_weight, int line_weight,
                                               int triangle_weight)
    : grViewRefresherTimeout(views, cache, frame_rate, point_weight, line_weight, triangle_weight, nullptr)
{}

grViewRefresherTimeout::grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache,
                                               double frame_rate, int point_weight, int line_weight,
                                               int triangle_weight, grViewRefresherFull* full_refresher)
    : grViewRefresher(views), the_full_refresher(full_refresher), the_cache(cache)
{
    initialise(frame_rate, point_weight, line_weight, triangle_weight);
}

grViewRefresherTimeout::~grViewRefresherTimeout() = default;

void grViewRefresherTimeout::initialise(double frame_rate, int point_weight, int line_weight, int triangle_weight)
{
    the_frame_budget = 1 / frame_rate;
    const auto n_drawn =
        std::count_if(views().begin(), views().end(), [](const dgView* view) { return view->root() != nullptr; });
    const double view_budget = the_frame_budget / static_cast<double>(std::max<std::ptrdiff_t>(n_drawn, 1));
    the_cache->add_timeout_renderers(views());
    for (dgView* view : views())
        the_cache->find_timeout_renderer(view)->get_ready(view_budget, point_weight, line_weight, triangle_weight);
    the_sorted_views = views();
    grViewListUtils::sort_views_by_renderer(the_sorted_views);
}

void grViewRefresherTimeout::refresh()
{
    find_full_refresh_time();
    if (!the_use_full_refresh)
    {
        draw_within_time();
        return;
    }
    grViewRefresherFull& full = full_refresher();
    for (int i = 0; i < nviews(); ++i)
        full.set_twiddle_icon(twiddle_icons()[i], views()[i]);
    draw_in_full([&] { full.refresh(); });
}

// Draws everything, and records how long that takes: each view's part is taken to be that of its primitives.
template <class Draw>
void grViewRefresherTimeout::draw_in_full(Draw draw)
{
    const auto finish = [this]
    {
        for (int i = 0; i < renderers().count(); ++i)
            renderers()[i]->finish();
    };
    finish();
    const double start = apHighResTime::time();
    draw();
    finish();
    const double seconds = apHighResTime::time_diff(start, apHighResTime::time());
    const auto weight = [](const grTimeoutRenderer& timeout)
    { return static_cast<double>(std::max(timeout.total(), 1ll)); };
    double sum = 0;
    for (const grTimeoutRenderer* timeout : drawing_renderers())
        sum += weight(*timeout);
    for (grTimeoutRenderer* timeout : drawing_renderers())
        timeout->full_refresh_time(seconds * weight(*timeout) / sum);
}

// Asked until it is known and never again: within a twiddle the way of drawing changes once at most.
void grViewRefresherTimeout::find_full_refresh_time()
{
    if (the_full_refresh_known)
        return;
    // Those that draw nothing are never measured.
    dgViewcoDList drawing;
    for (const grTimeoutRenderer* timeout : drawing_renderers())
        drawing.add_last(timeout->view());
    double seconds = 0;
    if (!the_cache->find_full_refresh_time(drawing, seconds))
        return;
    the_full_refresh_known = 1;
    if (the_allow_full_refresh && the_frame_budget > seconds)
        the_use_full_refresh = 1;
}

void grViewRefresherTimeout::draw_within_time()
{
    // The overlay callback may destroy views, which then leave the refresher, but not this list.
    const dgViewcoDList drawn_views = the_sorted_views;
    for (int i = drawn_views.count() - 1; i >= 0; --i)
    {
        dgView* view = drawn_views[i];
        if (!the_sorted_views.contains(view))
            continue;
        dgRenderer* renderer = view->renderer();
        draw_within_time(*view);
        int next = i - 1;
        while (next >= 0 && !the_sorted_views.contains(drawn_views[next]))
            --next;
        // One swap per renderer, after its last view: a second one would show the half-drawn back buffer.
        if (renderer && (next < 0 || drawn_views[next]->renderer() != renderer))
            renderer->swap_buffers(grViewListUtils::erase_on_swap_buffers());
    }
}

void grViewRefresherTimeout::draw_within_time(dgView& view)
{
    timeout_renderer(&view)->refresh_draw();
    const grView* companion = grView::contains(&view);
    if (!companion || !companion->hidden())
        grTwiddleOverlayCallback::call_callback(view);
    const int position = views().find(&view);
    if (dgStructure* icon = position < 0 ? nullptr : twiddle_icons()[position])
        view.render_network(icon);
}

int grViewRefresherTimeout::idle_needed()
{
    return state() != grTWID_ENDED && !the_use_full_refresh &&
           std::any_of(the_sorted_views.begin(), the_sorted_views.end(),
                       [this](dgView* view) { return timeout_renderer(view)->idle_draw_needed(); });
}

grIdleAction grViewRefresherTimeout::idle()
{
    if (state() == grTWID_ENDED || the_use_full_refresh)
        return grIDLE_DONE;
    // Items that are taken off may destroy views, which then leave the refresher, but not this list.
    const dgViewcoDList drawn_views = the_sorted_views;
    for (dgView* view : drawn_views)
    {
        if (!the_sorted_views.contains(view) || !timeout_renderer(view)->idle_draw_needed())
            continue;
        take_rubber_bands_off(view->renderer());
        if (the_sorted_views.contains(view) && timeout_renderer(view)->idle_draw() != grIDLE_DONE)
            return grIDLE_AGAIN;
    }
    return grIDLE_DONE;
}

void grViewRefresherTimeout::idle_refresh()
{
    full_refresher().refresh();
}

void grViewRefresherTimeout::end_twiddle()
{
    if (!the_use_full_refresh)
    {
        if (draws_others_at_end())
            refresh_at_end_of_twiddle();
        else
            draw_in_full([this] { refresh_at_end_of_twiddle(); });
        return;
    }
    if (forced_redraw())
        full_refresher().force_redraw_on_end_twiddle();
    full_refresher().end_twiddle();
}

// The cache may have evicted it for views of other twiddles.
grTimeoutRenderer* grViewRefresherTimeout::timeout_renderer(dgView* view) const
{
    if (!the_cache->find_timeout_renderer(view))
        the_cache->add_timeout_renderer(view);
    return the_cache->find_timeout_renderer(view);
}

// Of the views that are shown and have primitives.
std::vector<grTimeoutRenderer*> grViewRefresherTimeout::drawing_renderers() const
{
    std::vector<grTimeoutRenderer*> drawing;
    for (dgView* view : the_sorted_views)
        if (grTimeoutRenderer* timeout = timeout_renderer(view); timeout->draws_anything())
            drawing.push_back(timeout);
    return drawing;
}

grViewRefresherFull& grViewRefresherTimeout::full_refresher()
{
    if (!the_full_refresher)
        the_full_refresher = std::make_unique<grViewRefresherFull>(views());
    return *the_full_refresher;
}

void grViewRefresherTimeout::view_removed(dgView* view)
{
    while (the_sorted_views.remove(view))
        ;
    if (the_full_refresher)
        the_full_refresher->remove(view);
}
