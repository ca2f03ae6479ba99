#pragma once

#include "apHighResTime.h"
#include "dgRef.h"
#include "giBox3.h"
#include "grExport.h"
#include "grFastDrawMethod.h"

#include <memory>
#include <string>
#include <vector>

class dgRenderer;
class dgStructure;
class dgView;
class giBox2;
class giBox3;
class grFollowedShare;
class grNetworkSample;
class gsStructureFlattener;
class gsStructureSlicer;

/// Draws one view at a frame rate, however heavy its network is.
///
/// The first frame draws everything and makes a flattened copy of the network; the second draws as much as one frame's
/// time allows and measures. If that was not all, later frames draw a share: simplified levels of heavy blocks, and a
/// sample spread evenly over the rest. It starts as measured and follows what frames take and what is in view. Slices
/// drawn in between complete the picture. Once the network is edited, it is drawn itself, in such a share. Primitives
/// are counted as triangles, line segments and points.
class GR_EXPORT grViewRendererFast
{
public:
    /// The view is referenced, not owned; nothing more is drawn once it is destroyed. Takes the minimum frame rate over
    /// as it now is.
    explicit grViewRendererFast(dgView* view);
    ~grViewRendererFast();
    grViewRendererFast(const grViewRendererFast&) = delete;
    grViewRendererFast& operator=(const grViewRendererFast&) = delete;

    /// Erases the view and draws a frame into the selected buffer, with icon, which may be null, over it in frames
    /// after the second. A final frame draws everything and no icon.
    void refresh(dgStructure* icon, int final);

    /// Whether draw_a_slice would draw.
    int slice_needed();
    /// Draws the next part of what the last frame left out into the selected buffer, which shows that frame; 0 when
    /// nothing was left. A picture of another size, or of a network that was edited since, is started anew. Over a
    /// frame of simplified blocks the picture is completed in the back buffer and shown when it is complete.
    int draw_a_slice();

    /// Whether frames draw everything although a share was measured.
    void force_full_refresh(int on) { the_force_full = on; }

    grFastDrawMethod draw_method() const { return the_draw_method; }

    /// Seconds that the drawing of the last frame took; -1 before the first.
    double refresh_time() const { return the_refresh_time; }

    /// Null once the view is destroyed.
    dgView* view() const { return the_view; }

    /// The share of primitives that frames start with, from 0 to 1, the number of them in the network, and in a slice;
    /// as measured, 0 before and for grFAST_DRAW_ALL.
    double draw_ratio() const { return the_draw_ratio; }
    long long total_prims() const { return the_total_prims; }
    long long slice_prims() const { return the_slice_prims; }

    /// The share of primitives that the next frame draws where its view shows as much as the last one: from draw_ratio
    /// on it follows what frames take, and how much of the network is in view.
    double followed_ratio() const;

    /// How many views are drawn in the time of one frame; 1 by default. What is measured at first is for this view
    /// alone; the share that follows keeps to this view's part of the time.
    void views_in_frame(int count);

    /// When the renderer was made.
    const apHighResTime& start_time() const { return the_start_time; }

    /// Seconds in which a frame is to be drawn; 0 for no limit.
    double frame_time() const { return the_frame_time; }

    // Settings of all fast drawing.

    /// Frames per second below which views are thinned; 1.0 by default. 1e-5 and less is no limit.
    static double minimum_framerate();
    static void minimum_framerate(double frames_per_second);

    /// Whether the clipping planes are set from a view's bounding box; 0 by default.
    static int adjust_clip_planes();
    static void adjust_clip_planes(int on);

    /// Whether a view's own root structure is drawn in place of a flattened copy; 0 by default.
    static int disable_flattening();
    static void disable_flattening(int on);

    /// World distance by which a view's bounding box is grown; 0 by default, and nothing is done below.
    static double view_bbox_offset();
    static void view_bbox_offset(double distance);

    /// Function called with a view's bounding box before a final frame; null by default. It must leave view and root.
    using ClipPlanesResetCB = void (*)(dgView*, const giBox3&);
    static ClipPlanesResetCB clip_planes_resetCB();
    static void set_clip_planes_resetCB(ClipPlanesResetCB callback);
    /// The same for a function that gets data with each call; clip_planes_resetCB then answers null.
    static void set_clip_planes_resetCB(void (*callback)(dgView*, const giBox3&, void* data), void* data);

    /// Function that receives each flattened structure after a frame; null by default.
    using PrintCallback = void (*)(dgView*, dgStructure*);
    static PrintCallback print_callback();
    static void set_print_callback(PrintCallback callback);
    /// The same for a function that gets data with each call; print_callback then answers null.
    static void set_print_callback(void (*callback)(dgView*, dgStructure*, void* data), void* data);

    /// Kept for applications that call them: setting does nothing, and the answers are 0 and null.
    static double preferred_framerate() { return 0.0; }
    static void preferred_framerate(double) {}
    static int allow_simplified_lights() { return 0; }
    static void allow_simplified_lights(int) {}
    static void* light_set() { return nullptr; }
    static void* light_state() { return nullptr; }
    static void* reflection_attributes() { return nullptr; }
    static void fast_shade_stuff() {}
    static void print_framerate() {}
    static void delete_statics() {}

    /// Whether each flattened structure is written as an XML file and its name printed on standard output, for
    /// debugging; 0 by default.
    static int dump_flattened();
    static void dump_flattened(int on);

    /// What the names of these files start with, folder included; a running number and ".xml" follow. By default
    /// "flat_" in the temporary folder; on Windows "e:/temp/flat_".
    static std::string dump_prefix();
    static void dump_prefix(const std::string& path);

private:
    class ViewWatch;
    void forget_view();
    bool debug() const;
    void draw_frame(dgStructure* icon);
    void draw_final_frame();
    void flatten();
    void calibrate();
    void draw_share();
    void take_sample();
    void look_at_view();
    double frame_part() const;
    void draw_slice_in_boxes(const std::vector<giBox2>& boxes, int anew);
    void show_completed(const std::vector<giBox2>& boxes);
    void find_bbox(dgStructure* icon);
    dgStructure* drawn_structure() const;
    void look_at_network();
    unsigned long long looks_stamp() const;
    void note_picture();
    bool picture_is_stale();
    bool draws_slices() const;
    void forget_flat();
    template <class Draw>
    void draw_over(Draw draw);
    template <class Draw>
    void timed(Draw draw);

    dgView* the_view;
    apHighResTime the_start_time;
    int the_frame_limited;
    double the_frame_time;
    int the_calibrated = 0;
    grFastDrawMethod the_draw_method = grFAST_DRAW_ALL;
    double the_draw_ratio = 0;
    long long the_total_prims = 0;
    std::unique_ptr<gsStructureSlicer> the_slicer;
    long long the_slice_prims = 0;
    double the_measured_part = 1; // of the network that was in view then
    int the_force_full = 0;
    dgRef<dgStructure> the_flat;
    giBox3 the_bbox;
    int the_non_flattened_final = 0;
    double the_refresh_time = -1.0;

    std::unique_ptr<ViewWatch> the_watch;
    std::unique_ptr<grFollowedShare> the_share;
    std::unique_ptr<grNetworkSample> the_sample; // of the flat copy; null where frames show all
    double the_frame_start = 0;
    int the_views_in_frame = 1;
    std::unique_ptr<gsStructureFlattener> the_flattener; // null when the view's own root is drawn
    dgRef<dgStructure> the_root;                         // that the_flat was made from

    unsigned long long the_frame_stamp = 0; // of the network when the last frame or slice was begun
    unsigned long long the_shown_stamp = 0; // of the network and the looks then
    unsigned long long the_flat_looks = 0;  // stamp of the looks that the_flat was made with
    int the_see_through = 0;                // something see-through was in the last frame

    // What the last frame showed.
    unsigned long long the_picture_stamp = 0;
    int the_picture_width = 0;
    int the_picture_height = 0;
    int the_picture_simplified = 0;
    int the_share_simplified = 0; // in the last frame that drew a share
    dgRef<dgStructure> the_icon;  // over it

    static double the_minimum_framerate;
};
