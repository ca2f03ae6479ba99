#include "grViewRefresherTimeout.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grViewRefresherFull.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(grViewRefresherTimeout, grViewRefresher);

grViewRefresherTimeout::grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache,
                                               double frame_rate, int a, int b, int c)
    : grViewRefresherTimeout(views, cache, frame_rate, a, b, c, nullptr)
{}

grViewRefresherTimeout::grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache,
                                               double frame_rate, int a, int b, int c,
                                               grViewRefresherFull* full_refresher)
    : grViewRefresher(views), the_full_refresher(full_refresher), the_cache(cache)
{
    initialise(frame_rate, a, b, c);
}

grViewRefresherTimeout::~grViewRefresherTimeout() = default;

void grViewRefresherTimeout::initialise(double frame_rate, int a, int b, int c)
{
    the_frame_budget = 1 / frame_rate;
    const auto n_drawn =
        std::count_if(views().begin(), views().end(), [](const dgView* view) { return view->root() != nullptr; });
    const double view_budget = the_frame_budget / static_cast<double>(std::max<std::ptrdiff_t>(n_drawn, 1));
    the_cache->add_timeout_renderers(views());
    for (dgView* view : views())
        the_cache->find_timeout_renderer(view)->get_ready(view_budget, a, b, c);
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
    full.refresh();
}

// Asked until it is known and never again: within a twiddle the way of drawing changes once at most.
void grViewRefresherTimeout::find_full_refresh_time()
{
    double seconds = 0;
    if (the_full_refresh_known || !the_cache->find_full_refresh_time(the_sorted_views, seconds))
        return;
    the_full_refresh_known = 1;
    if (the_allow_full_refresh && the_frame_budget > seconds)
        the_use_full_refresh = 1;
}

void grViewRefresherTimeout::draw_within_time()
{
    for (int i = the_sorted_views.count() - 1; i >= 0; --i)
    {
        dgView* view = the_sorted_views[i];
        dgRenderer* renderer = view->renderer();
        if (grTimeoutRenderer* timeout = timeout_renderer(view))
            timeout->refresh_draw();
        const int position = views().find(view);
        if (dgStructure* icon = position < 0 ? nullptr : twiddle_icons()[position])
            view->render_network(icon);
        // One swap per renderer, after its last view: a second one would show the half-drawn back buffer.
        if (renderer && (i == 0 || the_sorted_views[i - 1]->renderer() != renderer))
            renderer->swap_buffers(grViewListUtils::erase_on_swap_buffers());
    }
}

grIdleAction grViewRefresherTimeout::idle()
{
    if (state() == grTWID_ENDED || the_use_full_refresh)
        return grIDLE_DONE;
    for (dgView* view : the_sorted_views)
    {
        grTimeoutRenderer* timeout = timeout_renderer(view);
        if (timeout && timeout->idle_draw() != grIDLE_DONE)
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
        refresh_at_end_of_twiddle();
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
