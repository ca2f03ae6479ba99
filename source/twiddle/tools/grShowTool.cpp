#include "grShowTool.h"

#include "dgView.h"
#include "grSelection.h"
#include "grStdTwiddleHooks.h"
#include "gr_pick.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grShowTool, grStdViewTwiddleTool);

namespace
{
constexpr double see_through_share = 0.3;
}

void grShowTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    twiddle_start(event);
    grSelection* selection = target_view() ? hooks()->identify_selection(*target_view()) : nullptr;
    if (!selection)
        return;
    std::vector<dgElementPath> parts = selection->selected();
    if (parts.empty())
        for (const dgPickHit& hit : gr_pick(*target_view(), giPoint2(event.x(), event.y())))
            parts.push_back(selection->part(hit.path));
    const utString what = args();
    if (what == "all")
        selection->show_all();
    else if (what == "isolate")
        selection->isolate(selection->isolated() ? std::vector<dgElementPath>() : parts);
    else if (parts.empty())
        return;
    else if (what == "see_through")
        selection->opacity(parts, selection->opacity(parts.front()) < 1 ? 1 : see_through_share);
    else
    {
        selection->hide(parts);
        selection->clear();
        selection->hover({});
    }
    // Callbacks may have closed the view.
    if (target_view())
        hooks()->selection_changed(this, *selection);
}

// Nothing was moved that had to be drawn again.
void grShowTool::end_twiddle(const gwKeyEvent& event)
{
    if (detail())
        twiddle_end(event);
}
