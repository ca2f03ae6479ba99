#include "grStdTwiddleHooks.h"

#include "dgRef.h"
#include "dgStructure.h"
#include "dgView.h"
#include "giPoint2.h"
#include "giPoint3.h"
#include "grStdTwiddleTool.h"
#include "grStringConverter.h"
#include "grStructureTwiddleDetail.h"
#include "grTimeoutRendererCache.h"
#include "grView.h"
#include "grViewListUtils.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "grViewTwiddleDetail.h"
#include "grWheelCourse.h"
#include "grWheelPictureRegistry.h"
#include "grWheelRefresher.h"
#include "grWheelToolRegistry.h"
#include "gwKeyEvent.h"
#include "gwResourceDB.h"

namespace
{
// How far outside its viewport, in device pixels, a point still is in a paper child.
constexpr double the_viewport_tolerance = 1e-5;

// Views whose time-out renderers are kept.
constexpr int timed_views = 16;

// Whether a tool can work on a view after the application has been asked about it, which may have closed it or taken
// its renderer.
bool usable(const dgView* view)
{
    return view && dgS::views().contains(const_cast<dgView*>(view)) && view->renderer();
}

// The first paper child, in order of attachment, under a device point; the view itself when there is none.
dgView* paper_child_at(dgView* view, const giPoint2& point_device)
{
    const grViewPaperParent* sheet = grViewPaperParent::ut_dynamic_cast(grView::contains(view));
    const int n = sheet ? sheet->npaper_child_views() : 0;
    for (int i = 0; i < n; ++i)
    {
        dgView* child = sheet->paper_child(i)->view();
        if (child && child->camera().view_port_dc().contains(point_device, the_viewport_tolerance))
            return child;
    }
    return view;
}
}

grStdTwiddleHooks::grStdTwiddleHooks(const gwResourceDB* db)
    : the_timeout_renderer_cache(std::make_unique<grTimeoutRendererCache>(timed_views))
{
    utString text;
    if (db && db->get_resource("disable_refresher_fast", text))
        grStringConverter::to_bool(text, the_disable_refresher_fast);
}

grViewTwiddleDetail* grStdTwiddleHooks::view_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event)
{
    dgViewcoDList views;
    dgView* target = identify_views(event, views);
    if (!usable(target))
        return nullptr;
    // The views to be redrawn stay those around the view under the pointer, also when its parent takes its place.
    target = find_child_if_locked(target, tool);
    if (!usable(target))
        return nullptr;
    std::unique_ptr<grViewRefresher> refresher(view_refresher(tool, views));
    grWorkPlane* workplane = identify_workplane();
    return usable(target) ? new grViewTwiddleDetail(target, refresher.release(), workplane) : nullptr;
}

grStructureTwiddleDetail* grStdTwiddleHooks::structure_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event)
{
    dgViewcoDList views;
    dgView* target = identify_views(event, views);
    if (!usable(target) || locked_view(target, tool))
        return nullptr;
    const dgRef<dgStructure> structure(identify_structure());
    grWorkPlane* workplane = identify_workplane();
    if (!structure || !usable(target))
        return nullptr;
    std::unique_ptr<grViewRefresher> refresher(view_refresher(tool, views));
    return usable(target) ? new grStructureTwiddleDetail(target, refresher.release(), structure.get(), workplane)
                          : nullptr;
}

dgView* grStdTwiddleHooks::identify_views(const gwKeyEvent& event, dgViewcoDList& views)
{
    const giPoint2 point_device(event.x(), event.y());
    dgView* target = dgS_find_view(event.window(), point_device);
    if (!target)
        return nullptr;
    target = paper_child_at(target, point_device);
    grViewListUtils::find_child_views(target, views);
    if (the_add_all_views_if_double_buffered && grViewListUtils::double_buffered_renderer(views))
        grViewListUtils::add_renderer_views(views);
    return target;
}

int grStdTwiddleHooks::locked_view(const dgView* view, const grStdTwiddleTool* tool)
{
    return locked_gr_view(view, tool);
}

grViewRefresher* grStdTwiddleHooks::view_refresher(const grStdTwiddleTool* tool, const dgViewcoDList& views)
{
    if (tool && tool->ut_is_kind_of(gr_mouse_wheel_zoom_tool_type()))
        return wheel_refresher(views);
    if (the_timeout_twiddling && tool && tool->flags().can_timeout_twiddle())
        return timeout_refresher(views);
    return the_use_refresher_fast ? fast_refresher(views) : new grViewRefresherFull(views);
}

grViewRefresher* grStdTwiddleHooks::timeout_refresher(const dgViewcoDList& views)
{
    auto* timeout =
        new grViewRefresherTimeout(views, the_timeout_renderer_cache.get(), get_timeout_twiddling(), 1, 1, 1);
    timeout->allow_full_refresh(the_allow_full_refresh);
    return timeout;
}

grViewRefresher* grStdTwiddleHooks::fast_refresher(const dgViewcoDList& views)
{
    auto* fast = new grViewRefresherFast(views);
    if (the_timeout_renderer_cache->refresh_stats() > 0)
        fast->enable_twiddle_timings(the_timeout_renderer_cache.get());
    return fast;
}

// A notch is a twiddle of its own, which ends at once: only where idle calls complete the picture may it lack anything.
grViewRefresher* grStdTwiddleHooks::wheel_refresher(const dgViewcoDList& named)
{
    const dgViewcoDList views = grViewRefresher::living(named);
    const bool timeout = the_timeout_twiddling;
    if (!(timeout || the_use_refresher_fast) || !grWheelCourse::idle_calls_come() ||
        (!timeout && grViewRefresherFast::idle_slices_forbidden(views)))
        return new grViewRefresherFull(views);
    const grWheelCourse::Manner manner{this, timeout, get_timeout_twiddling()};
    std::shared_ptr<grWheelCourse> course = grWheelCourse::find(manner, views);
    if (!course)
    {
        // The picture before it first: fast refreshers may share what they keep.
        gr_finish_wheel_picture();
        course = grWheelCourse::start(
            manner, std::unique_ptr<grViewRefresher>(timeout ? timeout_refresher(views) : fast_refresher(views)));
    }
    return new grWheelRefresher(views, course);
}

void grStdTwiddleHooks::record_refresh_stats(int n)
{
    the_timeout_renderer_cache->record_refresh_stats(n);
}

grWorkPlane* grStdTwiddleHooks::identify_workplane()
{
    return nullptr;
}

dgStructure* grStdTwiddleHooks::identify_structure()
{
    return nullptr;
}

void grStdTwiddleHooks::aperture_defined(const gwKeyEvent&, const gwKeyEvent&) {}

void grStdTwiddleHooks::start_twiddle(grStdTwiddleTool*, const gwKeyEvent&) {}

void grStdTwiddleHooks::mouse_event(grStdTwiddleTool*, const gwMouseEvent&) {}

void grStdTwiddleHooks::idle_event(grStdTwiddleTool*, grIdleAction) {}

void grStdTwiddleHooks::final_frame(grStdTwiddleTool*) {}

void grStdTwiddleHooks::end_twiddle(grStdTwiddleTool*, const gwKeyEvent&) {}

void grStdTwiddleHooks::destruction_twiddle(grStdTwiddleTool*) {}

giPoint3 grStdTwiddleHooks::get_world_centre(dgView& view)
{
    return view.camera().view_centre();
}

void grStdTwiddleHooks::update_rotation_centre(const dgView&, const gwKeyEvent&) {}

grStdTwiddleHooks::~grStdTwiddleHooks()
{
    grWheelCourse::hooks_end(this);
}

grSelection* grStdTwiddleHooks::identify_selection(const dgView&)
{
    return the_selection;
}

grSection* grStdTwiddleHooks::identify_section(const dgView&)
{
    return the_section;
}

void grStdTwiddleHooks::picked(grStdTwiddleTool*, const std::vector<dgPickHit>&) {}
void grStdTwiddleHooks::selection_changed(grStdTwiddleTool*, grSelection&) {}

int grStdTwiddleHooks::locked_gr_view(const dgView* view, const grStdTwiddleTool* tool) const
{
    const grView* gr_view = grView::contains(view);
    return gr_view && gr_view->twiddle_locked(tool);
}

dgView* grStdTwiddleHooks::find_child_if_locked(dgView* view, const grStdTwiddleTool* tool)
{
    if (!locked_view(view, tool))
        return view;
    const grViewPaperChild* child = grViewPaperChild::ut_dynamic_cast(grView::contains(view));
    grViewPaperParent* sheet = child ? child->paper_parent() : nullptr;
    dgView* parent = sheet ? sheet->view() : nullptr;
    return parent && !locked_view(parent, tool) ? parent : nullptr;
}

void grStdTwiddleHooks::enable_timeout_twiddling(double framerate)
{
    grViewRendererFast::minimum_framerate(framerate);
    the_timeout_twiddling = 1;
}

double grStdTwiddleHooks::get_timeout_twiddling() const
{
    return grViewRendererFast::minimum_framerate();
}

void grStdTwiddleHooks::set_preferred_framerate(double framerate)
{
    grViewRendererFast::preferred_framerate(framerate);
}

double grStdTwiddleHooks::get_preferred_framerate() const
{
    return grViewRendererFast::preferred_framerate();
}

void grStdTwiddleHooks::get_trackball_icon_colours(gsColour& first, gsColour& second) const
{
    first = the_trackball_icon_colours[0];
    second = the_trackball_icon_colours[1];
}

void grStdTwiddleHooks::set_trackball_icon_colours(const gsColour& first, const gsColour& second)
{
    the_trackball_icon_colours[0] = first;
    the_trackball_icon_colours[1] = second;
}

void grStdTwiddleHooks::use_refresher_fast(int on)
{
    if (!on || !the_disable_refresher_fast)
        the_use_refresher_fast = on;
}
