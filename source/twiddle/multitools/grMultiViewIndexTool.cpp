#include "grMultiViewIndexTool.h"

UT_DEFINE_TYPE(grMultiViewIndexTool, grViewIndexTool);

int grMultiViewIndexTool::find_ways(const gwKeyEvent& event)
{
    int any = 0;
    find_others(event,
                [&](dgView* view)
                {
                    const Way way = step(view);
                    any |= way.has_value();
                    return way;
                });
    return grViewIndexTool::find_ways(event) | any;
}

void grMultiViewIndexTool::move_views(double share) const
{
    each_other([&](dgView* view, const Way& way) { interpolate_view(view, way, share); });
    grViewIndexTool::move_views(share);
}
