#include "grStdViewTwiddleTool.h"

#include "dgView.h"
#include "grCameraViewCache.h"
#include "grCameraViewCacheMan.h"
#include "grStdTwiddleHooks.h"
#include "grViewRefresher.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grStdViewTwiddleTool, grStdTwiddleTool);

grStdViewTwiddleTool::grStdViewTwiddleTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdTwiddleTool(args, db, hooks)
{}

grStdViewTwiddleTool::~grStdViewTwiddleTool() = default;

void grStdViewTwiddleTool::save_camera() const
{
    save_camera(target_view());
}

void grStdViewTwiddleTool::save_camera(dgView* view) const
{
    if (!flags().can_save_camera())
        return;
    if (grCameraViewCache* cache = camera_cache(view))
        cache->push(*view);
}

grCameraViewCache* grStdViewTwiddleTool::camera_cache(dgView* view)
{
    grCameraViewCacheMan* man = grCameraViewCacheMan::instance();
    return man && view ? &man->cache(*view) : nullptr;
}

void grStdViewTwiddleTool::initialise_cache(const gwResourceDB* db)
{
    grCameraViewCacheMan::initialise(db);
}

void grStdViewTwiddleTool::delete_camera_cache()
{
    grCameraViewCacheMan::delete_instance();
}

int grStdViewTwiddleTool::find_detail(const gwKeyEvent& event)
{
    the_detail.reset(hooks() ? hooks()->view_detail(this, event) : nullptr);
    if (!target_view())
        the_detail.reset();
    return the_detail != nullptr;
}

int grStdViewTwiddleTool::start_view_twiddle(const gwKeyEvent& event)
{
    if (!find_detail(event))
        return 0;
    start_course(event, refresher());
    // The hooks may have closed the view.
    return target_view() != nullptr;
}

void grStdViewTwiddleTool::end_twiddle(const gwKeyEvent& event)
{
    end_view_twiddle(event);
}

void grStdViewTwiddleTool::end_view_twiddle(const gwKeyEvent& event)
{
    if (!detail())
        return;
    if (refresher())
        refresher()->base_end_twiddle();
    save_camera();
    twiddle_end(event);
}

void grStdViewTwiddleTool::refresh_views()
{
    if (refresher())
        refresher()->base_refresh();
}

grIdleAction grStdViewTwiddleTool::idle_event()
{
    return detail() ? idle_course(refresher()) : grIDLE_DONE;
}
