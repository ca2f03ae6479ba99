#pragma once

#include "dgEnums.h"
#include "dgS.h"
#include "grExport.h"

class dgStructure;

using dgStructurecoDList = coDList<dgStructure*>;

/// Operations over lists of display views. No list owns anything; views and renderers are compared by pointer.
class GR_EXPORT grViewListUtils
{
public:
    grViewListUtils() = delete;

    /// Makes the views of each renderer adjacent, every such group in the place of its first member. The order inside
    /// later groups is not kept.
    static void sort_views_by_renderer(dgViewcoDList& views);
    /// Puts the views into the display library's order and drops those that it does not know. A list of fewer than two
    /// views is left alone.
    static void sort_views_into_dgs_order(dgViewcoDList& views);

    /// Whether any renderer of the views also draws a view that is not in the list.
    static int missing_renderer_views(const dgViewcoDList& views);
    /// Appends all such views; 1 when there were any.
    static int add_renderer_views(dgViewcoDList& views);
    /// Whether any renderer of the views is double buffered in any of its modes.
    static int double_buffered_renderer(const dgViewcoDList& views);

    /// Puts a view and, before it, its children at the front of a list, the first child nearest to the view. The
    /// children on a sheet of paper come before these, or directly behind the view, by insert_paper_children_first.
    /// Children of children are left out.
    static void find_child_views(dgView* view, dgViewcoDList& views);

    /// Redraws views from the last in the list to the first, with one buffer swap per double-buffered renderer, so that
    /// views of one renderer must be adjacent in the list. Transparent views are not erased, hidden ones are erased but
    /// not drawn. extra_structures[i], which may be null, is drawn over the view extra_views[i], even when hidden.
    static void refresh_views(const dgViewcoDList& views, const dgViewcoDList& extra_views,
                              const dgStructurecoDList& extra_structures);
    /// The same with one extra structure; none when extra or extra_view is null.
    static void refresh_views(const dgViewcoDList& views, dgStructure* extra, dgView* extra_view);
    /// Redraws views whose renderers are given; their rubber bands are taken off before and put back after it, unless
    /// grRubberBandManager::do_redraw is off.
    static void refresh_views_and_rubber_banding(const dgViewcoDList& views, const dgRenderercoDList& renderers);

    /// What every buffer swap does with the new back buffer; dgSWAP_PLAIN by default.
    static dgDoubleBufferSwap erase_on_swap_buffers();
    static void erase_on_swap_buffers(dgDoubleBufferSwap mode);

    /// Whether find_child_views puts paper children at the front, which is the default, or behind the view.
    static int insert_paper_children_first();
    static void insert_paper_children_first(int on);

private:
    static dgDoubleBufferSwap the_erase_on_swap_buffers_arg;
    static int the_insert_paper_children_first_flag;
};
