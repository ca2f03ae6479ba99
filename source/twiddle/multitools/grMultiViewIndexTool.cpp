#include "grMultiViewIndexTool.h"

#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(grMultiViewIndexTool, grViewIndexTool);

void grMultiViewIndexTool::save_camera() const
{
    the_others.save_cameras(*this);
    grViewIndexTool::save_camera();
}

int grMultiViewIndexTool::find_ways(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    the_ways.clear();
    the_others.each([&](dgView* view, int) { the_ways.push_back(step(view)); });
    const int any = std::any_of(the_ways.begin(), the_ways.end(), [](const Way& way) { return way.has_value(); });
    return grViewIndexTool::find_ways(event) | any;
}

void grMultiViewIndexTool::move_views(double share) const
{
    the_others.each([&](dgView* view, int i) { interpolate_view(view, the_ways[static_cast<std::size_t>(i)], share); });
    grViewIndexTool::move_views(share);
}
