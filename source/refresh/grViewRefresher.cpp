#include "grViewRefresher.h"

#include "dgRenderer.h"
#include "dgStructure.h"
#include "dgView.h"
#include "grPictureBeside.h"
#include "grRubberBandsOff.h"
#include "utTypeID.h"

#include <algorithm>
#include <utility>

UT_DEFINE_TYPE(grViewRefresher, coReceiver);

// A picture under way. What is drawn may come back here: a frame inside a frame would leave half a picture, and an end
// would take away what is being drawn.
class grViewRefresher::Drawing
{
public:
    explicit Drawing(int& flag) : the_flag(flag) { flag = 1; }
    ~Drawing() { the_flag = 0; }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

private:
    int& the_flag;
};

dgViewcoDList grViewRefresher::living(const dgViewcoDList& views)
{
    dgViewcoDList found;
    for (dgView* view : views)
        if (dgS::views().contains(view))
            found.add_last(view);
    return found;
}

grViewRefresher::grViewRefresher(const dgViewcoDList& views)
    : the_views(living(views)), the_missing_views(grViewListUtils::missing_renderer_views(the_views))
{
    for (dgView* view : the_views)
    {
        view->reference();
        view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grViewRefresher::view_to_be_deleted>(this));
        the_twiddle_icons.add_last(nullptr);
    }
    collect_renderers();
    for (const dgRenderer* renderer : the_renderers)
        the_double_buffered |= renderer->driver_capability(-1, dgCAPABILITY_DOUBLE_BUFFERING);
}

grViewRefresher::~grViewRefresher()
{
    for (dgStructure* icon : the_twiddle_icons)
        if (icon)
            icon->unreference();
    for (dgView* view : the_views)
        view->unreference();
}

void grViewRefresher::base_start_twiddle()
{
    start_twiddle();
    the_state = grTWID_TWIDDLING;
}

void grViewRefresher::base_refresh()
{
    draw_picture(&grViewRefresher::refresh);
}

void grViewRefresher::base_idle_refresh()
{
    draw_picture(&grViewRefresher::idle_refresh);
}

void grViewRefresher::draw_picture(void (grViewRefresher::*draw)())
{
    if (the_drawing)
        return;
    {
        const Drawing drawing(the_drawing);
        collect_renderers();
        grRubberBandsOff rubber_bands(the_renderers, picture_beside(dgBACK_BUFFER));
        rubber_bands.take_off_all();
        set_draw_quality();
        (this->*draw)();
        reset_draw_quality();
        rubber_bands.select_front_buffers();
    }
    end_if_asked();
}

std::function<void(dgRenderer&)> grViewRefresher::picture_beside(dgDoubleBuffer buffer) const
{
    return [this, buffer](dgRenderer& renderer) { gr_draw_picture_beside(renderer, the_views, buffer); };
}

grIdleAction grViewRefresher::base_idle()
{
    if (the_drawing)
        return grIDLE_DONE;
    grIdleAction action = grIDLE_DONE;
    {
        const Drawing drawing(the_drawing);
        collect_renderers();
        grRubberBandsOff rubber_bands(the_renderers, picture_beside(dgFRONT_BUFFER));
        the_idle_rubber_bands = &rubber_bands;
        action = idle();
        the_idle_rubber_bands = nullptr;
        rubber_bands.select_front_buffers();
    }
    end_if_asked();
    return action;
}

void grViewRefresher::end_if_asked()
{
    if (std::exchange(the_end_awaits, 0))
        base_end_twiddle();
}

void grViewRefresher::refresh_by(grViewRefresher& other)
{
    if (other.the_drawing)
        return;
    {
        const Drawing drawing(other.the_drawing);
        other.collect_renderers();
        other.refresh();
    }
    other.end_if_asked();
}

void grViewRefresher::take_rubber_bands_off(dgRenderer* renderer)
{
    if (the_idle_rubber_bands)
        the_idle_rubber_bands->take_off(renderer);
}

void grViewRefresher::base_end_twiddle()
{
    if (the_drawing)
    {
        the_end_awaits = 1;
        return;
    }
    {
        const Drawing drawing(the_drawing);
        collect_renderers();
        end_twiddle();
    }
    the_end_awaits = 0;
    for (dgStructure*& icon : the_twiddle_icons)
        if (dgStructure* released = std::exchange(icon, nullptr))
            released->unreference();
    the_state = grTWID_ENDED;
}

void grViewRefresher::set_twiddle_icon(dgStructure* icon, dgView* view)
{
    const int position = the_views.find(view);
    if (position < 0)
        return;
    // Referenced first: releasing an icon that is set again could destroy it.
    if (icon)
        icon->reference();
    if (dgStructure* released = std::exchange(the_twiddle_icons[position], icon))
        released->unreference();
}

void grViewRefresher::remove(dgView* view)
{
    int position = the_views.find(view);
    if (position < 0)
        return;
    view->call_list().remove(DG_VIEW_TO_BE_DELETED, this);
    for (; position >= 0; position = the_views.find(view))
    {
        if (dgStructure* icon = the_twiddle_icons[position])
            icon->unreference();
        the_twiddle_icons.remove_at(position);
        the_views.remove_at(position);
        view->unreference();
    }
    collect_renderers();
    view_removed(view);
}

void grViewRefresher::view_removed(dgView*) {}

int grViewRefresher::check_views() const
{
    return std::all_of(the_views.begin(), the_views.end(), [](const dgView* view) { return view->renderer(); });
}

void grViewRefresher::refresh_at_end_of_twiddle()
{
    // Another refresher may use this one for its drawing alone.
    collect_renderers();
    if (!draws_others_at_end())
    {
        grViewListUtils::refresh_views_and_rubber_banding(the_views, the_renderers);
        return;
    }
    dgViewcoDList all_views = the_views;
    grViewListUtils::add_renderer_views(all_views);
    grViewListUtils::sort_views_into_dgs_order(all_views);
    grViewListUtils::sort_views_by_renderer(all_views);
    grViewListUtils::refresh_views_and_rubber_banding(all_views, the_renderers);
}

void grViewRefresher::view_to_be_deleted(void* sender, void*)
{
    remove(static_cast<dgView*>(sender));
}

void grViewRefresher::set_draw_quality()
{
    if (!the_draw_quality_overrides.any_enabled())
        return;
    for (dgRenderer* renderer : the_renderers)
    {
        dgDrawQuality quality = renderer->get_pipeline_draw_quality();
        the_saved_draw_qualities.push_back({renderer, quality});
        if (the_draw_quality_overrides.facet_tolerance.enabled)
        {
            quality.facet_tolerance_set = 1;
            quality.facet_tolerance = the_draw_quality_overrides.facet_tolerance.value;
        }
        if (the_draw_quality_overrides.polygons.enabled)
        {
            quality.polygon_regeneration_set = 1;
            quality.polygon_regeneration = the_draw_quality_overrides.polygons.value;
        }
        if (the_draw_quality_overrides.text.enabled)
        {
            quality.text_quality_set = 1;
            quality.text_quality = the_draw_quality_overrides.text.value;
        }
        renderer->set_in_pipeline_context(&quality);
    }
    // So that the last picture is one of the normal quality.
    the_forced_redraw = 1;
}

void grViewRefresher::reset_draw_quality()
{
    for (const SavedQuality& saved : the_saved_draw_qualities)
        saved.renderer->set_in_pipeline_context(&saved.quality);
    the_saved_draw_qualities.clear();
}

// A renderer may be destroyed once its last view is gone or has been taken from it, so this is done again after each
// removal and before all drawing.
void grViewRefresher::collect_renderers()
{
    the_renderers.clear();
    for (const dgView* view : the_views)
        if (view->renderer() && !the_renderers.contains(view->renderer()))
            the_renderers.add_last(view->renderer());
}
