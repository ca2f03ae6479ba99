#include "grSelectTool.h"

#include "dgView.h"
#include "grSelection.h"
#include "grStdTwiddleHooks.h"
#include "grTokeniser.h"
#include "gr_pick.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

#include <string_view>

UT_DEFINE_TYPE(grSelectTool, grStdViewTwiddleTool);

bool grSelectTool::argument(const char* word) const
{
    grTokeniser tokens(args().c_str(), " ,\t");
    while (const char* token = tokens.next_token())
        if (std::string_view(token) == word)
            return true;
    return false;
}

void grSelectTool::take_at(const giPoint2& position)
{
    take(gr_pick(*target_view(), position, argument("all") ? grPICK_ALL : grPICK_FRONT,
                 argument("triangles") ? grPICK_FEATURES : grPICK_PARTS));
}

void grSelectTool::take_in(const giBox2& device_box)
{
    take(gr_pick_box(*target_view(), device_box, argument("all") ? grPICK_ALL : grPICK_FRONT,
                     argument("triangles") ? grPICK_FEATURES : grPICK_PARTS));
}

void grSelectTool::take(const std::vector<dgPickHit>& hits)
{
    hooks()->picked(this, hits);
    // The hooks may have closed the view.
    grSelection* selection = target_view() ? hooks()->identify_selection(*target_view()) : nullptr;
    if (!selection)
        return;
    const grSelectMode mode = argument("toggle") ? grSELECT_TOGGLE : argument("add") ? grSELECT_ADD : grSELECT_ONLY;
    std::vector<dgElementPath> parts;
    for (const dgPickHit& hit : hits)
        parts.push_back(selection->part(hit.path));
    if (argument("triangles"))
        selection->select_triangles(hits, mode);
    else
        selection->select(parts, mode);
    hooks()->selection_changed(this, *selection);
}

void grSelectTool::start_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return;
    twiddle_start(event);
    if (target_view())
        take_at(giPoint2(event.x(), event.y()));
}

// Nothing was moved that had to be drawn again.
void grSelectTool::end_twiddle(const gwKeyEvent& event)
{
    if (detail())
        twiddle_end(event);
}
