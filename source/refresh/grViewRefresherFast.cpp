#include "grViewRefresherFast.h"

#include "dgRenderNetworkAction.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grRubberBandsOff.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grViewRendererFast.h"
#include "utTypeID.h"

#include <algorithm>
#include <utility>

UT_DEFINE_TYPE(grViewRefresherFast, grViewRefresher);

namespace
{
using FastRenderers = std::vector<std::shared_ptr<grViewRendererFast>>;

int the_cache_graphics = 0;
int the_cache_dropped = 0; // since the live refresher made its renderers
int the_final_frame = 0;
int the_in_refresh = 0;

// Renderers kept from the last twiddle, which the live refresher may share. Never destroyed: their views may be static
// objects.
FastRenderers& cache()
{
    static auto* const renderers = new FastRenderers;
    return *renderers;
}

dgRenderer* renderer_of(const grViewRendererFast& fast)
{
    return fast.view() ? fast.view()->renderer() : nullptr;
}

bool idle_slices_blocked(const dgView& view)
{
    const dgRenderNetworkAction* action = view.render_network_action();
    if (!action)
        action = dgView::the_global_render_network_action;
    return action && action->check(view);
}
}

grViewRefresherFast::grViewRefresherFast(const dgViewcoDList& views) : grViewRefresher(views)
{
    if (!the_cache_graphics || cache().empty())
        return;
    // Deliberate: compared in the order given, although the renderers are grouped. Views of several renderers that
    // alternate in the list never find theirs again, which costs a copy and is never wrong.
    bool same = static_cast<int>(cache().size()) == views.count();
    for (int i = 0; same && i < views.count(); ++i)
        same = cache()[static_cast<std::size_t>(i)]->view() == views[i];
    if (!same)
        graphics_state_changed();
}

grViewRefresherFast::~grViewRefresherFast()
{
    finish_with_renderers();
}

void grViewRefresherFast::make_renderers()
{
    if (!cache().empty())
    {
        the_fast_renderers = cache();
        // A view may have gone since the list was compared.
        std::erase_if(the_fast_renderers, [](const auto& fast) { return !fast->view(); });
    }
    else
    {
        dgViewcoDList sorted = views();
        grViewListUtils::sort_views_by_renderer(sorted);
        for (dgView* view : sorted)
            the_fast_renderers.push_back(std::make_shared<grViewRendererFast>(view));
    }
    the_cache_dropped = 0;
}

void grViewRefresherFast::refresh()
{
    the_in_refresh = 1;
    if (the_fast_renderers.empty())
        make_renderers();
    // Those whose views the overlay callback destroys leave the refresher, but not this list.
    const FastRenderers drawn = the_fast_renderers;
    const auto n_views = std::count_if(drawn.begin(), drawn.end(),
                                       [](const auto& fast) { return fast->view() && fast->view()->root(); });
    for (auto fast = drawn.rbegin(); fast != drawn.rend(); ++fast)
    {
        dgRenderer* renderer = renderer_of(**fast);
        if (!renderer)
            continue;
        renderer->select_buffer(dgBACK_BUFFER);
        (*fast)->views_in_frame(static_cast<int>(n_views));
        refresh_renderer(**fast);
        const auto next =
            std::find_if(fast + 1, drawn.rend(), [](const auto& other) { return other->view() != nullptr; });
        const bool last_of_renderer = next == drawn.rend() || renderer_of(**next) != renderer;
        if (last_of_renderer)
            renderer->swap_buffers(grViewListUtils::erase_on_swap_buffers());
    }
}

void grViewRefresherFast::refresh_renderer(grViewRendererFast& fast)
{
    const int position = views().find(fast.view());
    // The final picture has no icons.
    dgStructure* icon = position < 0 || the_final_frame ? nullptr : twiddle_icons()[position];
    fast.refresh(icon, the_final_frame);
    dgView* view = fast.view();
    if (!view)
        return;
    if (idle_slices_blocked(*view))
        the_idle_blocked = 1;
    if (!timing_cache())
        return;
    if (!timing_cache()->find_timeout_renderer(view))
        timing_cache()->add_timeout_renderer(view);
    timing_cache()->find_timeout_renderer(view)->twiddle_refresh_time(fast.refresh_time());
}

int grViewRefresherFast::idle_slices_forbidden(const dgViewcoDList& views)
{
    const dgRenderer* first = views.count() ? views.first()->renderer() : nullptr;
    return !first || first->idle_slicing_forbidden() ||
           std::any_of(views.begin(), views.end(),
                       [](const dgView* view) { return idle_slices_blocked(*view) || view->shows_see_through(); });
}

// Whether idle() may draw at all.
bool grViewRefresherFast::draws_slices() const
{
    if (state() != grTWID_TWIDDLING || the_idle_blocked || !nviews())
        return false;
    const dgRenderer* first = views().first()->renderer();
    return first && !first->idle_slicing_forbidden();
}

int grViewRefresherFast::idle_needed()
{
    return draws_slices() && std::any_of(the_fast_renderers.begin(), the_fast_renderers.end(),
                                         [](const auto& fast) { return fast->slice_needed(); });
}

grIdleAction grViewRefresherFast::idle()
{
    if (!draws_slices())
        return grIDLE_DONE;
    int drawn = 0;
    // Those whose views the overlay callback destroys leave the refresher, but not this list.
    const FastRenderers slicing = the_fast_renderers;
    for (const auto& fast : slicing)
    {
        dgRenderer* renderer = renderer_of(*fast);
        if (!renderer)
            continue;
        const int needed = fast->slice_needed();
        if (needed)
            take_rubber_bands_off(renderer);
        renderer->select_buffer(dgFRONT_BUFFER);
        if (needed)
            drawn |= fast->draw_a_slice();
    }
    return drawn ? grIDLE_AGAIN : grIDLE_DONE;
}

void grViewRefresherFast::idle_refresh()
{
    if (the_fast_renderers.empty())
        return;
    for (const auto& fast : the_fast_renderers)
        fast->force_full_refresh(1);
    refresh();
    for (const auto& fast : the_fast_renderers)
        fast->force_full_refresh(0);
}

void grViewRefresherFast::end_twiddle()
{
    if (the_fast_renderers.empty())
    {
        grViewListUtils::refresh_views_and_rubber_banding(views(), renderers());
        the_in_refresh = 0;
        return;
    }
    grRubberBandsOff rubber_bands(renderers(), picture_beside(dgBACK_BUFFER));
    rubber_bands.take_off_all();
    the_final_frame = 1;
    refresh();
    the_final_frame = 0;
    // By index: the overlay callback may have taken a renderer out of the list.
    for (int i = 0; i < renderers().count(); ++i)
        renderers()[i]->select_buffer(dgFRONT_BUFFER);
    the_in_refresh = 0;
}

void grViewRefresherFast::finish_with_renderers()
{
    if (!the_fast_renderers.empty() && cache().empty())
    {
        if (the_cache_graphics && !the_cache_dropped)
            cache() = the_fast_renderers;
        else
            the_cache_dropped = 0;
    }
    the_fast_renderers.clear();
}

void grViewRefresherFast::view_removed(dgView* view)
{
    for (FastRenderers* renderers : {&the_fast_renderers, &cache()})
        std::erase_if(*renderers, [view](const auto& fast) { return !fast->view() || fast->view() == view; });
}

int grViewRefresherFast::cache_graphics()
{
    return the_cache_graphics;
}

void grViewRefresherFast::cache_graphics(int on)
{
    the_cache_graphics = on;
    if (!on)
        graphics_state_changed();
}

void grViewRefresherFast::graphics_state_changed()
{
    cache().clear();
    the_cache_dropped = 1;
}

int grViewRefresherFast::in_refresh()
{
    return the_in_refresh;
}
