#pragma once

#include "coReceiver.h"
#include "dgDrawQuality.h"
#include "dgS.h"
#include "grExport.h"
#include "grIdleAction.h"
#include "grTwidState.h"
#include "grViewListUtils.h"
#include "gsRegenerate.h"

#include <functional>
#include <vector>

class grRubberBandsOff;
class grTimeoutRendererCache;

/// The way in which a set of views is redrawn for the length of one twiddle.
///
/// Whoever twiddles makes a refresher and calls base_start_twiddle, base_refresh for every frame, base_idle between
/// frames as long as it answers grIDLE_AGAIN, base_idle_refresh for a better picture, and base_end_twiddle. Idle
/// refreshes may go on after the end. A view that is destroyed meanwhile is dropped. Rubber bands are off while
/// something is drawn. What is drawn may itself ask for a frame, which is ignored, or end the twiddle, which then ends
/// once the picture is complete.
class GR_EXPORT grViewRefresher : public coReceiver
{
public:
    /// Draws the views, in this order where order matters. No view is null; none is owned, but each is referenced.
    /// Those that have been destroyed are left out.
    explicit grViewRefresher(const dgViewcoDList& views);
    ~grViewRefresher() override;

    /// Those of the views that have not been destroyed, as hooks may do between naming them and making a refresher.
    static dgViewcoDList living(const dgViewcoDList& views);

    void base_start_twiddle();
    void base_refresh();
    void base_idle_refresh();
    grIdleAction base_idle();
    /// Releases the twiddle icons after the last drawing.
    void base_end_twiddle();

    /// Whether base_idle would draw: the last frame left something out, and idle calls complete it.
    int base_idle_needed() { return idle_needed(); }

    grTwidState state() const { return the_state; }
    int nviews() const { return the_views.count(); }
    const dgViewcoDList& views() const { return the_views; }

    /// Draws icon over a view on every interactive frame, in place of any other icon of the view; null removes it. The
    /// icon is referenced until the twiddle ends. A view that is not redrawn by this refresher is ignored.
    void set_twiddle_icon(dgStructure* icon, dgView* view);

    /// Drops a view and its icon, as the destruction of the view does.
    void remove(dgView* view);

    /// Whether the end of the twiddle has to redraw, although the last frame was complete.
    int forced_redraw() const { return the_forced_redraw; }
    void force_redraw_on_end_twiddle() { the_forced_redraw = 1; }

    /// Values of the drawing quality to be used on every refresh in place of the renderers' own; none is enabled at
    /// first. One that is enabled forces a redraw at the end.
    gsRegenerate& draw_quality_overrides() { return the_draw_quality_overrides; }

    /// Records frame times in a cache, which is not owned; null ends it.
    void enable_twiddle_timings(grTimeoutRendererCache* cache) { the_timing_cache = cache; }

    UT_DECLARE_TYPE(grViewRefresher, coReceiver);

protected:
    grViewRefresher(const grViewRefresher&) = delete;
    grViewRefresher& operator=(const grViewRefresher&) = delete;

    virtual void start_twiddle() {}
    virtual void refresh() = 0;
    virtual void idle_refresh() { refresh(); }
    /// Called over and over while nothing happens. It calls take_rubber_bands_off before it draws, and only then.
    virtual grIdleAction idle() { return grIDLE_DONE; }
    virtual void end_twiddle() = 0;

    /// Draws a frame by another refresher from inside refresh(): rubber bands are off already.
    static void refresh_by(grViewRefresher& other);

    /// What draws, in a buffer, the views of a renderer that are not views(), as bands may lie over them.
    std::function<void(dgRenderer&)> picture_beside(dgDoubleBuffer buffer) const;

    /// Takes the rubber bands of a renderer off for the rest of a call of idle().
    void take_rubber_bands_off(dgRenderer* renderer);

    /// Called after a view has left views(); it may be half destroyed.
    virtual void view_removed(dgView* view);

    /// Whether idle() would draw.
    virtual int idle_needed() { return 0; }

    /// Whether every view has a renderer.
    int check_views() const;

    /// Redraws all views without icons. Where buffers are swapped, the other views of the same renderers are redrawn
    /// too, because a swap shows them all.
    void refresh_at_end_of_twiddle();
    /// Whether it redraws such other views.
    bool draws_others_at_end() const { return the_missing_views && the_double_buffered; }

    /// The renderers that the views now have, in order of first appearance. Taken anew before each refresh and all
    /// drawing at the end.
    const dgRenderercoDList& renderers() const { return the_renderers; }
    /// Whether any of them is double buffered in any of its modes.
    int double_buffered() const { return the_double_buffered; }
    /// One icon or null for each of views().
    const dgStructurecoDList& twiddle_icons() const { return the_twiddle_icons; }
    grTimeoutRendererCache* timing_cache() const { return the_timing_cache; }

private:
    struct SavedQuality
    {
        dgRenderer* renderer;
        dgDrawQuality quality;
    };
    class Drawing;
    void view_to_be_deleted(void* sender, void* data);
    void draw_picture(void (grViewRefresher::*draw)());
    void end_if_asked();
    void set_draw_quality();
    void reset_draw_quality();
    void collect_renderers();

    grTwidState the_state = grTWID_NOT_STARTED;
    dgViewcoDList the_views;
    gsRegenerate the_draw_quality_overrides{1, 0};
    std::vector<SavedQuality> the_saved_draw_qualities; // filled while a refresh runs
    dgRenderercoDList the_renderers;
    int the_missing_views;
    int the_double_buffered = 0;
    dgStructurecoDList the_twiddle_icons; // parallel to the_views; those that are not null are referenced
    grTimeoutRendererCache* the_timing_cache = nullptr;
    int the_forced_redraw = 0;
    int the_drawing = 0;
    int the_end_awaits = 0;                            // asked for while something is drawn
    grRubberBandsOff* the_idle_rubber_bands = nullptr; // while idle() runs
};
