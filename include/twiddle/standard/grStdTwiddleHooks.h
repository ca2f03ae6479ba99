#pragma once

#include "dgEnums.h"
#include "dgS.h"
#include "grExport.h"
#include "grIdleAction.h"
#include "grTrackballCentreType.h"
#include "gsColour.h"

#include <memory>
#include <vector>

class dgStructure;
class dgView;
class giPoint3;
class grSection;
class grSelection;
class grStdTwiddleTool;
class grStructureTwiddleDetail;
class grTimeoutRendererCache;
class grViewRefresher;
class grViewTwiddleDetail;
class grWorkPlane;
class gwKeyEvent;
class gwMouseEvent;
class gwResourceDB;
struct dgPickHit;

/// The application's control over the standard tools: it says what an event is about, how it is redrawn and with which
/// settings, and is told of every phase of a twiddle. Applications derive from it; the defaults serve without.
///
/// Whatever is called here may destroy views, the target too, and take renderers from views. It must not destroy a
/// renderer that a view still has, nor the manager or the assembly that runs the tool.
class GR_EXPORT grStdTwiddleHooks
{
public:
    /// Reads "disable_refresher_fast" from db, which may be null and is not kept.
    explicit grStdTwiddleHooks(const gwResourceDB* db = nullptr);

    /// What a view tool started by event works on; the caller owns it. Null when there is no view under the pointer or
    /// it is locked against the tool and has no parent sheet to take its place.
    virtual grViewTwiddleDetail* view_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event);
    /// The same for a tool that moves a structure. Null also when identify_structure answers null.
    virtual grStructureTwiddleDetail* structure_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event);
    /// The view under the pointer, or null. views gets the views to be redrawn with it, itself among them: its child
    /// views and, if so set, all views of a double-buffered window. On a sheet of paper views, the target is the first
    /// paper child under the pointer.
    virtual dgView* identify_views(const gwKeyEvent& event, dgViewcoDList& views);
    /// 1 when the tool may not act on the view.
    virtual int locked_view(const dgView* view, const grStdTwiddleTool* tool);
    /// What redraws the views during the twiddle; the caller owns it. With time-out twiddling on, tools that may be
    /// drawn within the time of a frame get the time-out refresher; otherwise the fast refresher is taken when it is in
    /// use, and else the full one. A notch of the wheel is drawn by what draws the notches around it as one drag, in
    /// the way that is set here, and completed in idle calls; where none come, it is drawn in full.
    virtual grViewRefresher* view_refresher(const grStdTwiddleTool* tool, const dgViewcoDList& views);
    /// The plane that tools may act about, which must outlive the twiddle; null by default.
    virtual grWorkPlane* identify_workplane();
    /// The structure that structure tools move; null by default.
    virtual dgStructure* identify_structure();
    /// Told of the two corners dragged with the aperture tool.
    virtual void aperture_defined(const gwKeyEvent& first, const gwKeyEvent& second);

    /// Notifications; the defaults do nothing.
    virtual void start_twiddle(grStdTwiddleTool* tool, const gwKeyEvent& event);
    virtual void mouse_event(grStdTwiddleTool* tool, const gwMouseEvent& event);
    virtual void idle_event(grStdTwiddleTool* tool, grIdleAction action);
    virtual void final_frame(grStdTwiddleTool* tool);
    virtual void end_twiddle(grStdTwiddleTool* tool, const gwKeyEvent& event);
    virtual void destruction_twiddle(grStdTwiddleTool* tool);

    /// The centre of rotations, in world space: the view centre of the view's camera by default.
    virtual giPoint3 get_world_centre(dgView& view);
    /// Called at the start of a rotation, before get_world_centre, to let the application move the centre.
    virtual void update_rotation_centre(const dgView& view, const gwKeyEvent& event);
    virtual ~grStdTwiddleHooks();

    /// The selection that tools change which act on a view, or null: by default the one that was given.
    virtual grSelection* identify_selection(const dgView& view);
    /// Told of what a selecting tool has picked, before it changes the selection; the nearest first, none for nothing.
    virtual void picked(grStdTwiddleTool* tool, const std::vector<dgPickHit>& hits);
    /// Told after it has, and what is selected now was drawn.
    virtual void selection_changed(grStdTwiddleTool* tool, grSelection& selection);

    /// The section that tools move which act on a view, or null: by default the one that was given.
    virtual grSection* identify_section(const dgView& view);

    /// The section of all views, null at first; not owned.
    grSection* section() const { return the_section; }
    void section(grSection* section) { the_section = section; }

    /// The selection of all views, null at first; not owned.
    grSelection* selection() const { return the_selection; }
    void selection(grSelection* selection) { the_selection = selection; }

    /// What locked_view does by default.
    int locked_gr_view(const dgView* view, const grStdTwiddleTool* tool) const;
    /// The view itself when it is not locked; the view of its paper parent when only it is locked; else null.
    dgView* find_child_if_locked(dgView* view, const grStdTwiddleTool* tool);

    /// Lets tools be drawn within the time of one frame. framerate, in frames per second, becomes the minimum rate of
    /// all fast view renderers and stays so after disable_timeout_twiddling.
    void enable_timeout_twiddling(double framerate);
    void disable_timeout_twiddling() { the_timeout_twiddling = 0; }
    int get_timeout_twiddling_flag() const { return the_timeout_twiddling; }
    /// The minimum frame rate of the fast view renderers, whether the flag is on or off.
    double get_timeout_twiddling() const;

    /// The process-wide preferred frame rate of the fast view renderers.
    void set_preferred_framerate(double framerate);
    double get_preferred_framerate() const;

    /// Whether a time-out twiddle may draw everything once that fits the frame time.
    int allow_full_refresh() const { return the_allow_full_refresh; }
    void allow_full_refresh(int on) { the_allow_full_refresh = on; }

    /// What time-out twiddles learn about views, for 16 views.
    grTimeoutRendererCache& timeout_renderer_cache() { return *the_timeout_renderer_cache; }
    /// How many frame times are remembered of views that are twiddled for the first time from now on, with the fast
    /// refresher too; 0 at first.
    void record_refresh_stats(int n);

    /// How clipping planes are fitted to boxes.
    dgBoundingViewType clipping_mode() const { return the_clipping_mode; }
    void clipping_mode(dgBoundingViewType mode) { the_clipping_mode = mode; }

    /// Whether the views to be redrawn include all views of a double-buffered window: a swap shows all of them.
    int add_all_views_if_double_buffered() const { return the_add_all_views_if_double_buffered; }
    void add_all_views_if_double_buffered(int on) { the_add_all_views_if_double_buffered = on; }

    grTrackballCentreType get_trackball_centre_type() const { return the_trackball_centre_type; }
    void set_trackball_centre_type(grTrackballCentreType type) { the_trackball_centre_type = type; }

    int draw_trackball_icon() const { return the_draw_trackball_icon; }
    void draw_trackball_icon(int on) { the_draw_trackball_icon = on; }
    void get_trackball_icon_colours(gsColour& first, gsColour& second) const;
    void set_trackball_icon_colours(const gsColour& first, const gsColour& second);

    /// Whether a view that is let go while it moves goes on turning.
    int allow_spinning() const { return the_allow_spinning; }
    void allow_spinning(int on) { the_allow_spinning = on; }

    /// Whether twiddles are drawn by the fast refresher. Turning it on has no effect when the resources disable it.
    int use_refresher_fast() const { return the_use_refresher_fast; }
    void use_refresher_fast(int on);

protected:
    grStdTwiddleHooks(const grStdTwiddleHooks&) = delete;
    grStdTwiddleHooks& operator=(const grStdTwiddleHooks&) = delete;

private:
    grViewRefresher* timeout_refresher(const dgViewcoDList& views);
    grViewRefresher* fast_refresher(const dgViewcoDList& views);
    grViewRefresher* wheel_refresher(const dgViewcoDList& views);

    grSelection* the_selection = nullptr;
    grSection* the_section = nullptr;
    int the_timeout_twiddling = 0;
    int the_allow_full_refresh = 1;
    dgBoundingViewType the_clipping_mode = dgBOUNDING_VIEW_BOX;
    int the_add_all_views_if_double_buffered = 1;
    grTrackballCentreType the_trackball_centre_type = dgLEAVS_TRACKBALL_CENTRE_VIEW;
    int the_draw_trackball_icon = 1;
    gsColour the_trackball_icon_colours[2] = {gsColour(0, 1, 0), gsColour(1, 1, 0)};
    int the_allow_spinning = 0;
    std::unique_ptr<grTimeoutRendererCache> the_timeout_renderer_cache;
    int the_disable_refresher_fast = 0;
    int the_use_refresher_fast = 0;
};
