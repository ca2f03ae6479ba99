#include "grViewListUtils.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "grCanvasRegistry.h"
#include "grPictureBeside.h"
#include "grRubberBandsOff.h"
#include "grTwiddleOverlayCallback.h"
#include "grUncovered.h"
#include "grView.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"

dgDoubleBufferSwap grViewListUtils::the_erase_on_swap_buffers_arg = dgSWAP_PLAIN;
int grViewListUtils::the_insert_paper_children_first_flag = 1;

namespace
{
// Calls visit for every view that a renderer of the list draws and that is not in the list, the renderers in the order
// of the sorted list's groups from the last to the first, until visit answers true.
template <class Visit>
void find_missing_views(const dgViewcoDList& views, Visit visit)
{
    dgViewcoDList sorted = views;
    grViewListUtils::sort_views_by_renderer(sorted);
    const dgRenderer* previous = nullptr;
    for (int i = sorted.count() - 1; i >= 0; --i)
    {
        const dgRenderer* renderer = sorted[i]->renderer();
        if (!renderer || renderer == previous)
            continue;
        previous = renderer;
        for (dgView* view : dgS::views())
            if (view->renderer() == renderer && !sorted.contains(view) && visit(view))
                return;
    }
}

bool double_buffered(const dgRenderer* renderer, int mode)
{
    return renderer->driver_capability(mode, dgCAPABILITY_DOUBLE_BUFFERING);
}

// Draws a view without its extra structure; the overlay callback may then have destroyed this view and others.
void draw_view(dgView& view)
{
    const grView* companion = grView::contains(&view);
    if (!companion || companion->background() != grVIEW_BACKGROUND_TRANSPARENT)
        view.erase(dgERASE_ZBUFFER_YES);
    if (companion && companion->hidden())
        return;
    view.render_network(nullptr);
    grTwiddleOverlayCallback::call_callback(view);
}

bool alive(dgView* view)
{
    return dgS::views().contains(view);
}

// Position of the last live view before a position; -1 when there is none.
int live_view_before(const dgViewcoDList& views, int position)
{
    do
        --position;
    while (position >= 0 && !alive(views[position]));
    return position;
}
}

void gr_draw_picture_beside(dgRenderer& renderer, const dgViewcoDList& views, dgDoubleBuffer buffer)
{
    renderer.select_buffer(buffer);
    if (gr_find_canvas(&renderer))
        gr_erase_between_views(renderer, renderer.window_box());
    dgViewcoDList others;
    for (dgView* view : dgS::views())
        if (view->renderer() == &renderer && !views.contains(view))
            others.add_last(view);
    for (dgView* view : others)
        if (alive(view) && view->renderer() == &renderer)
            draw_view(*view);
}

void grViewListUtils::sort_views_by_renderer(dgViewcoDList& views)
{
    for (int i = 0; i < views.count(); ++i)
    {
        const dgRenderer* renderer = views[i]->renderer();
        int end_of_group = i + 1;
        for (int j = end_of_group; j < views.count(); ++j)
            if (views[j]->renderer() == renderer)
            {
                views.swap(j, end_of_group);
                ++end_of_group;
                ++i;
            }
    }
}

void grViewListUtils::sort_views_into_dgs_order(dgViewcoDList& views)
{
    if (views.count() < 2)
        return;
    int n_moved = 0;
    for (auto it = dgS::views().last_it(); it; --it)
        if (views.remove(it()))
        {
            views.add_first(it());
            ++n_moved;
        }
    views.truncate(n_moved);
}

int grViewListUtils::missing_renderer_views(const dgViewcoDList& views)
{
    bool missing = false;
    find_missing_views(views, [&](dgView*) { return missing = true; });
    return missing;
}

int grViewListUtils::add_renderer_views(dgViewcoDList& views)
{
    const int n_before = views.count();
    find_missing_views(views,
                       [&](dgView* view)
                       {
                           views.add_last(view);
                           return false;
                       });
    return views.count() > n_before;
}

int grViewListUtils::double_buffered_renderer(const dgViewcoDList& views)
{
    for (const dgView* view : views)
        if (view->renderer() && double_buffered(view->renderer(), -1))
            return 1;
    return 0;
}

void grViewListUtils::find_child_views(dgView* view, dgViewcoDList& views)
{
    views.add_first(view);
    const grView* companion = grView::contains(view);
    if (!companion)
        return;
    for (auto it = companion->it(); it; ++it)
        views.add_first(it()->view());

    const grViewPaperParent* paper = grViewPaperParent::ut_dynamic_cast(companion);
    if (!paper)
        return;
    for (int i = 0; i < paper->npaper_child_views(); ++i)
    {
        dgView* paper_view = paper->paper_child(i)->view();
        if (the_insert_paper_children_first_flag)
            views.add_first(paper_view);
        else
        {
            // Always directly behind the view, so that the list, drawn from its end, still shows child 0 lowest.
            views.cursor(companion->nchild_views());
            views.insert_after_cursor(paper_view);
        }
    }
}

void grViewListUtils::refresh_views(const dgViewcoDList& views, const dgViewcoDList& extra_views,
                                    const dgStructurecoDList& extra_structures)
{
    // Views that the overlay callback destroys leave the lists of a refresher, but not this one.
    const dgViewcoDList drawn_views = views;
    for (int i = drawn_views.count() - 1; i >= 0; --i)
    {
        dgView* view = drawn_views[i];
        dgRenderer* renderer = alive(view) ? view->renderer() : nullptr;
        if (!renderer)
            continue;
        renderer->select_buffer(dgBACK_BUFFER);
        draw_view(*view);
        // Looked for only now: an extra structure may go with its view.
        const int extra = alive(view) ? extra_views.find(view) : -1;
        if (extra >= 0 && extra_structures[extra])
            view->render_network(extra_structures[extra]);

        // One swap per renderer, after its last view: a second one would show the half-drawn back buffer.
        const int next = live_view_before(drawn_views, i);
        const bool last_of_renderer = next < 0 || drawn_views[next]->renderer() != renderer;
        if (last_of_renderer && double_buffered(renderer, renderer->mode()))
        {
            renderer->swap_buffers(the_erase_on_swap_buffers_arg);
            renderer->select_buffer(dgFRONT_BUFFER);
        }
    }
}

void grViewListUtils::refresh_views(const dgViewcoDList& views, dgStructure* extra, dgView* extra_view)
{
    if (extra && extra_view)
        refresh_views(views, dgViewcoDList{extra_view}, dgStructurecoDList{extra});
    else
        refresh_views(views, dgViewcoDList(), dgStructurecoDList());
}

void grViewListUtils::refresh_views_and_rubber_banding(const dgViewcoDList& views, const dgRenderercoDList& renderers)
{
    grRubberBandsOff rubber_bands(renderers, [&](dgRenderer& renderer)
                                  { gr_draw_picture_beside(renderer, views, dgBACK_BUFFER); });
    rubber_bands.take_off_all();
    refresh_views(views, nullptr, nullptr);
}

dgDoubleBufferSwap grViewListUtils::erase_on_swap_buffers()
{
    return the_erase_on_swap_buffers_arg;
}

void grViewListUtils::erase_on_swap_buffers(dgDoubleBufferSwap mode)
{
    the_erase_on_swap_buffers_arg = mode;
}

int grViewListUtils::insert_paper_children_first()
{
    return the_insert_paper_children_first_flag;
}

void grViewListUtils::insert_paper_children_first(int on)
{
    the_insert_paper_children_first_flag = on;
}
