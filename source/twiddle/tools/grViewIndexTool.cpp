#include "grViewIndexTool.h"

#include "apHighResTime.h"
#include "dgView.h"
#include "grCameraViewCache.h"
#include "grToolResources.h"
#include "grViewRefresher.h"
#include "utTypeID.h"

#include <algorithm>

namespace
{
// Starts and ends gently: the speed is 0 at both ends.
double eased(double share)
{
    return share * share * (3 - 2 * share);
}
}

UT_DEFINE_TYPE(grViewIndexTool, grStdViewTwiddleTool);

grViewIndexTool::grViewIndexTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_forwards(args == "next")
{
    flags().can_timeout_twiddle(1);
    double seconds = 0;
    if (gr_read_number(db, "view_index_seconds", seconds) && seconds >= 0)
        the_seconds = seconds;
}

void grViewIndexTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event) || !find_ways(event))
        return;
    the_moving = 1;
    the_start_time = apHighResTime::time();
    if (the_seconds > 0)
        return;
    advance();
    refresh_views();
}

int grViewIndexTool::find_ways(const gwKeyEvent&)
{
    the_way = step(target_view());
    if (the_way)
        the_index = camera_cache(target_view())->position();
    return the_way.has_value();
}

grViewIndexTool::Way grViewIndexTool::step(dgView* view) const
{
    grCameraViewCache* cache = camera_cache(view);
    if (!cache)
        return std::nullopt;
    if (!the_forwards && cache->current())
        cache->push(*view);
    const grSavedCameraPosition* to = the_forwards ? cache->next() : cache->previous();
    if (!to)
        return std::nullopt;
    return grCameraInterpolation(grSavedCameraPosition(*view), *to);
}

void grViewIndexTool::interpolate_view(dgView* view, const Way& way, double share)
{
    if (!view || !way)
        return;
    if (share < 1)
    {
        way->apply(*view, share);
        return;
    }
    // The planes first: those who watch the camera find the view as it shall be.
    set_clipping_planes_view(view, way->destination());
    restore_camera(view, way->destination());
}

void grViewIndexTool::restore_camera(dgView* view, const grSavedCameraPosition& stored)
{
    stored.restore_camera(*view);
    view->camera().world2view_altered();
}

void grViewIndexTool::set_clipping_planes_view(dgView* view, const grSavedCameraPosition& stored)
{
    stored.restore_clipping_planes(*view);
}

void grViewIndexTool::move_views(double share) const
{
    interpolate_view(target_view(), the_way, share);
}

void grViewIndexTool::advance()
{
    const double passed = apHighResTime::time_diff(the_start_time, apHighResTime::time());
    // Compared this way round, no time at all is the whole way too.
    const bool under_way = passed < the_seconds;
    move_views(under_way ? eased(std::max(passed, 0.0) / the_seconds) : 1.0);
    the_moving = under_way;
}

grIdleAction grViewIndexTool::idle_event()
{
    if (!the_moving || !target_view())
        return grStdViewTwiddleTool::idle_event();
    advance();
    // Once the key is let go nothing completes a frame but the last one, which draws everything.
    return moved_in_idle_time(refresher(), state() != grTWID_TWIDDLING && !the_moving);
}

void grViewIndexTool::end_twiddle(const gwKeyEvent& event)
{
    if (the_moving)
        busy_state(grTWID_NOT_BUSY);
    end_view_twiddle(event);
}

void grViewIndexTool::destruction_twiddle()
{
    if (the_moving && target_view())
    {
        the_moving = 0;
        move_views(1);
        if (refresher())
            refresher()->base_idle_refresh();
    }
    grStdViewTwiddleTool::destruction_twiddle();
}
