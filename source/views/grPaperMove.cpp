#include "grPaperMove.h"

#include "dgView.h"

void grPaperMove::begin(const dgView& view)
{
    the_sheet = grViewPaperParent::ut_dynamic_cast(grView::contains(&view));
    if (the_sheet)
        the_before = view.camera();
}
