#include "grViewRefresherFull.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grViewRefresherFull, grViewRefresher);

grViewRefresherFull::grViewRefresherFull(const dgViewcoDList& views)
    : grViewRefresher(views), the_sorted_views(this->views())
{
    grViewListUtils::sort_views_by_renderer(the_sorted_views);
}

grViewRefresherFull::~grViewRefresherFull() = default;

void grViewRefresherFull::refresh()
{
    grViewListUtils::refresh_views(the_sorted_views, views(), twiddle_icons());
}

void grViewRefresherFull::end_twiddle()
{
    if (forced_redraw())
        refresh_at_end_of_twiddle();
}

void grViewRefresherFull::view_removed(dgView* view)
{
    while (the_sorted_views.remove(view))
        ;
}
