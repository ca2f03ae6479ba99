#include "grViewRendererFast.h"

#include "apEnvironment.h"
#include "apNumber.h"
#include "coCallFunc.h"
#include "coReceiver.h"
#include "dgClientStructure.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grFlatDump.h"
#include "grFollowedShare.h"
#include "grInstalledAction.h"
#include "grNetworkSample.h"
#include "grTwiddleOverlayCallback.h"
#include "grUncovered.h"
#include "grView.h"
#include "gsFullQuality.h"
#include "gsStructureCallibration.h"
#include "gsStructureFlattener.h"
#include "gsStructureSkipper.h"
#include "gsStructureSlicer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

double grViewRendererFast::the_minimum_framerate = 1.0;

namespace
{
// Frames per second that count as no limit.
constexpr double no_framerate = 1e-5;

// Share of a frame's time below which a slice may be twice as large.
constexpr double little_of_a_frame = 0.4;

int the_adjust_clip_planes = 0;
int the_disable_flattening = 0;
double the_view_bbox_offset = 0.0;
// A function of the application, with or without data of its own.
template <class... Arguments>
struct Callback
{
    void (*plain)(Arguments...) = nullptr;
    void (*with_data)(Arguments..., void*) = nullptr;
    void* data = nullptr;

    explicit operator bool() const { return plain || with_data; }
    void operator()(Arguments... arguments) const
    {
        if (plain)
            plain(arguments...);
        else
            with_data(arguments..., data);
    }
};

Callback<dgView*, const giBox3&> the_clip_planes_resetCB;
Callback<dgView*, dgStructure*> the_print_callback;
int the_dump_flattened = 0;

std::string& dump_prefix_text()
{
    static auto* const prefix = new std::string(gr_default_flat_dump_prefix());
    return *prefix;
}

// Keeps a renderer from accumulating frames for the life of the object.
class SingleFrames
{
public:
    explicit SingleFrames(dgRenderer& renderer) : the_renderer(renderer), the_accumulate(renderer.accumulate())
    {
        renderer.accumulate(0);
    }
    ~SingleFrames() { the_renderer.accumulate(the_accumulate); }
    SingleFrames(const SingleFrames&) = delete;
    SingleFrames& operator=(const SingleFrames&) = delete;

private:
    dgRenderer& the_renderer;
    int the_accumulate;
};

// Puts a camera's planes around a box for the life of the object, in place of those fitted to the network at each
// drawing. Planes that the user has set stay.
class BoxPlanes
{
public:
    BoxPlanes(dgView& view, const giBox3& box) : the_view(view), the_user_planes(view.user_clip_planes())
    {
        if (box.empty() || the_user_planes)
            return;
        view.camera().clip_bounding_box(box, dgBOUNDING_VIEW_SPHERE);
        view.user_clip_planes(1);
    }
    ~BoxPlanes() { the_view.user_clip_planes(the_user_planes); }
    BoxPlanes(const BoxPlanes&) = delete;
    BoxPlanes& operator=(const BoxPlanes&) = delete;

private:
    dgView& the_view;
    int the_user_planes;
};

// Not by std::cout, whose header makes every source that includes it register a function to run at exit.
void print_time(const char* what, double seconds)
{
    std::printf("%s%s\n", what, ap_number_text(seconds).c_str());
    std::fflush(stdout);
}

bool transparent(const dgView& view)
{
    const grView* companion = grView::contains(&view);
    return companion && companion->background() == grVIEW_BACKGROUND_TRANSPARENT;
}
}

// Tells the renderer of the end of its view.
class grViewRendererFast::ViewWatch : public coReceiver
{
public:
    explicit ViewWatch(grViewRendererFast& renderer) : the_renderer(renderer)
    {
        renderer.the_view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&ViewWatch::deleted>(this));
    }

private:
    void deleted(void*, void*) { the_renderer.forget_view(); }
    grViewRendererFast& the_renderer;
};

grViewRendererFast::grViewRendererFast(dgView* view)
    : the_view(view), the_frame_limited(the_minimum_framerate > no_framerate),
      the_frame_time(the_frame_limited ? 1 / the_minimum_framerate : 0), the_share(std::make_unique<grFollowedShare>())
{
    debug();
    the_view->reference();
    the_watch = std::make_unique<ViewWatch>(*this);
}

grViewRendererFast::~grViewRendererFast()
{
    forget_view();
}

void grViewRendererFast::forget_view()
{
    if (dgView* view = std::exchange(the_view, nullptr))
    {
        the_watch->clear_callbacks();
        view->unreference();
    }
}

bool grViewRendererFast::debug() const
{
    // Read once, for the first renderer of the process.
    static const bool on = apEnvironment::contains("GR_TWIDDLE_DEBUG");
    return on;
}

template <class Draw>
void grViewRendererFast::timed(Draw draw)
{
    const double start = apHighResTime::time();
    draw();
    // Drawing is asynchronous: without this the time would be that of giving orders.
    the_view->renderer()->finish();
    the_refresh_time = apHighResTime::time_diff(start, apHighResTime::time());
}

void grViewRendererFast::refresh(dgStructure* icon, int final)
{
    if (!the_view || !the_view->renderer())
        return;
    if (!the_view->root())
    {
        the_view->erase(dgERASE_ZBUFFER_YES);
        timed([this] { the_view->render_network(nullptr); });
        return;
    }
    if (the_slicer)
        the_view->renderer()->finish(); // the last slice takes nothing of the frame's time
    the_frame_start = apHighResTime::time();
    the_slicer.reset();
    the_picture_simplified = 0;
    the_icon.reset();
    look_at_network();
    if (the_flat && (the_root.get() != the_view->root() || the_flat_looks != looks_stamp()))
    {
        // Another network, or other parts of it: nothing that was measured holds.
        forget_flat();
        the_calibrated = 0;
    }
    if (!transparent(*the_view))
        the_view->erase(dgERASE_ZBUFFER_YES);
    {
        const SingleFrames single_frames(*the_view->renderer());
        {
            const BoxPlanes box_planes(*the_view, the_bbox);
            if (final && the_flat)
                draw_final_frame();
            else
                draw_frame(icon);
        }
        note_picture();
        grTwiddleOverlayCallback::call_callback(*the_view);
    }
    if (!the_view)
        return; // the callback has destroyed it
    if (the_flat && the_print_callback)
        the_print_callback(the_view, the_flat.get());
    if (final && the_flattener && the_non_flattened_final && !the_flattener->flat_root_matches(the_frame_stamp))
        forget_flat();
}

void grViewRendererFast::draw_frame(dgStructure* icon)
{
    if (!the_flat)
        flatten();
    else if (the_calibrated)
    {
        find_bbox(icon);
        if (the_draw_method == grFAST_DRAW_SHARE && !the_force_full)
            draw_share();
        else
            timed([this] { the_view->render_network(drawn_structure()); });
        if (debug())
            print_time("Frame time: ", the_refresh_time);
        if (icon)
            the_view->render_network_normal(*icon);
        the_icon = dgRef<dgStructure>(icon);
    }
    else
    {
        calibrate();
        const double calibration_time = the_refresh_time;
        // A whole picture was asked for, or one of simplified blocks, of which a sample need not be seen.
        if (the_force_full && the_draw_method == grFAST_DRAW_SHARE)
            draw_over([this] { the_view->render_network(drawn_structure()); });
        else if (the_view->renderer()->simplifies() && draws_slices() && !transparent(*the_view))
            draw_over([this] { draw_share(); });
        the_refresh_time = calibration_time;
    }
}

// Another picture in place of the one that was drawn to measure.
template <class Draw>
void grViewRendererFast::draw_over(Draw draw)
{
    the_frame_start = apHighResTime::time();
    if (!transparent(*the_view))
        the_view->erase(dgERASE_ZBUFFER_YES);
    draw();
}

// How much of the network is in view, and so how much of it a frame may draw. Simplified blocks are drawn whole, what
// lies out of view as well.
void grViewRendererFast::look_at_view()
{
    const bool culled = the_sample && !the_share_simplified && the_view->renderer()->culling();
    the_share->part_in_view(culled ? the_sample->share_shown(*the_view) : 1);
}

void grViewRendererFast::draw_share()
{
    look_at_view();
    dgRenderer& renderer = *the_view->renderer();
    gsStructureSkipper skipper(the_total_prims, the_share->share());
    const grInstalledAction installed(renderer, &skipper);
    // What lies under a transparent view cannot be drawn anew when its picture is completed.
    const int simplified_levels = renderer.simplified_levels();
    renderer.simplified_levels(simplified_levels && !transparent(*the_view));
    timed([this] { the_view->render_network(drawn_structure()); });
    renderer.simplified_levels(simplified_levels);
    the_picture_simplified = the_share_simplified = skipper.simplified();
    if (the_frame_limited && the_total_prims > 0)
        the_share->frame_drawn(static_cast<double>(skipper.prims_drawn()) / static_cast<double>(the_total_prims),
                               apHighResTime::time_diff(the_frame_start, apHighResTime::time()) / frame_part());
}

void grViewRendererFast::views_in_frame(int count)
{
    the_views_in_frame = std::max(count, 1);
}

double grViewRendererFast::frame_part() const
{
    return the_frame_time / the_views_in_frame;
}

double grViewRendererFast::followed_ratio() const
{
    return the_draw_method == grFAST_DRAW_SHARE ? the_share->share() : 0;
}

void grViewRendererFast::draw_final_frame()
{
    dgRenderer& renderer = *the_view->renderer();
    std::optional<gsFullQuality> full_quality;
    if (the_flattener)
        full_quality.emplace(*the_flat, renderer, renderer.get_pipeline_draw_quality());
    if (the_clip_planes_resetCB && !the_bbox.empty())
        the_clip_planes_resetCB(the_view, the_bbox);
    // Asked again: the network may have been edited since it was flattened.
    if (the_flattener && the_flattener->final_refresh_non_flattened(the_frame_stamp))
        the_non_flattened_final = 1;
    dgStructure* structure = the_non_flattened_final ? the_view->root() : the_flat.get();
    timed([&] { the_view->render_network(structure); });
    if (the_view)
        the_view->picture_is_whole();
}

void grViewRendererFast::flatten()
{
    the_root = dgRef<dgStructure>(the_view->root());
    the_flat_looks = looks_stamp();
    the_non_flattened_final = 0;
    if (the_disable_flattening)
    {
        the_flat = the_root;
        timed([this] { the_view->render_network(the_flat.get()); });
        take_sample();
        return;
    }
    the_flat = dgRef<dgStructure>(new dgClientStructure);
    the_flattener = std::make_unique<gsStructureFlattener>(the_root.get(), the_flat.get(),
                                                           the_frame_limited ? the_frame_time : -1.0);
    {
        const grInstalledAction installed(*the_view->renderer(), the_flattener.get());
        timed([this] { the_view->render_network(nullptr); });
    }
    if (debug())
        print_time("Flatten time: ", the_refresh_time);
    the_non_flattened_final = the_flattener->final_refresh_non_flattened(the_frame_stamp);
    take_sample();
    if (the_dump_flattened)
        gr_dump_flat_structure(*the_flat, dump_prefix_text());
}

// For shares, which what cannot be drawn in a frame's time will need. A network that could not be copied has parts that
// the looks may hide.
void grViewRendererFast::take_sample()
{
    const bool hides = the_view->looks() && (!the_flattener || the_non_flattened_final);
    if (the_frame_limited && the_refresh_time > the_frame_time && !hides)
        the_sample = std::make_unique<grNetworkSample>(*the_flat, grNetworkSample::BY_FEATURE);
}

void grViewRendererFast::calibrate()
{
    const double budget = the_frame_limited ? the_frame_time : -1.0;
    gsStructureCallibration calibration(budget);
    {
        const grInstalledAction installed(*the_view->renderer(), &calibration);
        the_view->render_network(drawn_structure());
    }
    the_refresh_time = calibration.elapsed_time();
    // Deliberate: a time equal to the budget leaves none for the swap and is too long already. Without a limit, when
    // the budget is -1, a share of all is drawn rather than everything, so that draw_ratio and total_prims are known.
    if (!(budget > the_refresh_time))
    {
        the_draw_method = grFAST_DRAW_SHARE;
        const auto drawn = static_cast<double>(calibration.prims_drawn(1) + calibration.prims_drawn(0));
        the_total_prims = calibration.prims_total(1) + calibration.prims_total(0);
        const auto total = static_cast<double>(the_total_prims);
        the_draw_ratio = the_total_prims < 1 ? 1.0 : std::clamp(drawn / total, 0.0, 1.0);
        the_slice_prims = std::llround(total * the_draw_ratio);
        look_at_view();
        the_measured_part = the_share->part_in_view();
        the_share->start(the_draw_ratio);
    }
    else
        the_draw_method = grFAST_DRAW_ALL;
    the_calibrated = 1;
    if (!debug())
        return;
    print_time("Callibration time: ", the_refresh_time);
    std::printf("Draw method = %d\n", static_cast<int>(the_draw_method));
    std::fflush(stdout);
}

void grViewRendererFast::find_bbox(dgStructure* icon)
{
    if (!the_adjust_clip_planes || !the_bbox.empty())
        return;
    the_bbox = the_view->root()->bounding_box();
    if (icon)
        the_bbox.merge(icon->bounding_box());
    if (the_view_bbox_offset > 0)
        the_bbox.grow(the_view_bbox_offset);
}

// The flat copy, as long as it shows what the network is.
dgStructure* grViewRendererFast::drawn_structure() const
{
    const bool matches =
        !the_flattener || (the_flattener->flat_root_matches(the_frame_stamp) && the_flat_looks == looks_stamp());
    return matches ? the_flat.get() : the_view->root();
}

void grViewRendererFast::forget_flat()
{
    the_flattener.reset();
    the_sample.reset();
    the_flat.reset();
    the_root.reset();
}

unsigned long long grViewRendererFast::looks_stamp() const
{
    return the_view->looks() ? the_view->looks()->stamp() : 0;
}

void grViewRendererFast::look_at_network()
{
    the_frame_stamp = the_view->root()->network_stamp();
    the_shown_stamp = the_view->shown_stamp();
}

void grViewRendererFast::note_picture()
{
    the_picture_stamp = the_shown_stamp;
    the_see_through = the_view->renderer()->drew_see_through();
    the_picture_width = the_view->renderer_width();
    the_picture_height = the_view->renderer_height();
}

// Takes a new look at the network.
bool grViewRendererFast::picture_is_stale()
{
    look_at_network();
    return the_picture_stamp != the_shown_stamp || the_picture_width != the_view->renderer_width() ||
           the_picture_height != the_view->renderer_height();
}

// Slices that come later would lie over what is see-through.
bool grViewRendererFast::draws_slices() const
{
    return the_draw_method == grFAST_DRAW_SHARE && !the_see_through && the_slice_prims >= 1 && the_view &&
           the_view->renderer() && the_view->root() && the_root.get() == the_view->root();
}

int grViewRendererFast::slice_needed()
{
    return draws_slices() && (!the_slicer || the_slicer->another_slice_needed() || picture_is_stale()) &&
           !gr_uncovered_boxes(*the_view).empty();
}

int grViewRendererFast::draw_a_slice()
{
    if (!draws_slices())
        return 0;
    const bool stale = picture_is_stale();
    if (stale)
    {
        // What is seen is of another size or of a network that is no more.
        the_slicer.reset();
        note_picture();
    }
    if (the_slicer && !the_slicer->another_slice_needed())
        return 0;
    const std::vector<giBox2> boxes = gr_uncovered_boxes(*the_view);
    if (boxes.empty())
        return 0;
    // Each box draws the slice again, all of them together in the time of one.
    const int first = !the_slicer;
    if (first)
    {
        // All of a slice may lie where the view is: what was measured of a view that showed less is too much.
        const double measured =
            static_cast<double>(the_slice_prims) * std::min(the_measured_part / the_share->part_in_view(), 1.0);
        const double followed = static_cast<double>(the_total_prims) * the_share->share_of(1);
        the_slicer = std::make_unique<gsStructureSlicer>(std::llround(std::max(measured, followed)) /
                                                         static_cast<long long>(boxes.size()));
    }
    const double start = apHighResTime::time();
    the_slicer->next_slice();
    if (!the_picture_simplified)
        draw_slice_in_boxes(boxes, stale);
    else
    {
        // Where a simplified surface lies in front of the true one, it would stay.
        dgRenderer& renderer = *the_view->renderer();
        renderer.select_buffer(dgBACK_BUFFER);
        draw_slice_in_boxes(boxes, first);
        if (!the_slicer->another_slice_needed())
            show_completed(boxes);
        renderer.select_buffer(dgFRONT_BUFFER);
    }
    // A share that was measured while others took the processor may be tiny, and each slice has a cost of its own. What
    // the first one takes is not known before the second one.
    const double seconds = apHighResTime::time_diff(start, apHighResTime::time());
    if (the_frame_limited && !first && seconds > 0 && seconds < little_of_a_frame * frame_part() &&
        the_slicer->per_slice() < the_total_prims)
        the_slicer->per_slice(2 * the_slicer->per_slice());
    return 1;
}

void grViewRendererFast::draw_slice_in_boxes(const std::vector<giBox2>& boxes, int anew)
{
    const BoxPlanes box_planes(*the_view, the_bbox);
    const grInstalledAction installed(*the_view->renderer(), the_slicer.get());
    dgStructure* const structure = drawn_structure();
    gr_draw_in_boxes(*the_view, boxes,
                     [&]
                     {
                         if (anew && !transparent(*the_view))
                             the_view->erase(dgERASE_ZBUFFER_YES);
                         the_view->render_network(structure);
                     });
    // So that slices do not pile up before the next frame.
    the_view->renderer()->finish_all_but_last();
}

// Puts what lies over frames over the completed picture too, and shows it.
void grViewRendererFast::show_completed(const std::vector<giBox2>& boxes)
{
    dgRenderer& renderer = *the_view->renderer();
    if (the_icon)
        gr_draw_in_boxes(*the_view, boxes, [&] { the_view->render_network_normal(*the_icon); });
    grTwiddleOverlayCallback::call_callback(*the_view);
    for (const giBox2& box : boxes)
        renderer.show_back_buffer(box);
    the_picture_simplified = 0;
}

double grViewRendererFast::minimum_framerate()
{
    return the_minimum_framerate;
}

void grViewRendererFast::minimum_framerate(double frames_per_second)
{
    the_minimum_framerate = frames_per_second;
}

int grViewRendererFast::adjust_clip_planes()
{
    return the_adjust_clip_planes;
}

void grViewRendererFast::adjust_clip_planes(int on)
{
    the_adjust_clip_planes = on;
}

int grViewRendererFast::disable_flattening()
{
    return the_disable_flattening;
}

void grViewRendererFast::disable_flattening(int on)
{
    the_disable_flattening = on;
}

double grViewRendererFast::view_bbox_offset()
{
    return the_view_bbox_offset;
}

void grViewRendererFast::view_bbox_offset(double distance)
{
    the_view_bbox_offset = distance;
}

grViewRendererFast::ClipPlanesResetCB grViewRendererFast::clip_planes_resetCB()
{
    return the_clip_planes_resetCB.plain;
}

void grViewRendererFast::set_clip_planes_resetCB(ClipPlanesResetCB callback)
{
    the_clip_planes_resetCB = {callback};
}

void grViewRendererFast::set_clip_planes_resetCB(void (*callback)(dgView*, const giBox3&, void*), void* data)
{
    the_clip_planes_resetCB = {nullptr, callback, data};
}

grViewRendererFast::PrintCallback grViewRendererFast::print_callback()
{
    return the_print_callback.plain;
}

void grViewRendererFast::set_print_callback(PrintCallback callback)
{
    the_print_callback = {callback};
}

void grViewRendererFast::set_print_callback(void (*callback)(dgView*, dgStructure*, void*), void* data)
{
    the_print_callback = {nullptr, callback, data};
}

int grViewRendererFast::dump_flattened()
{
    return the_dump_flattened;
}

void grViewRendererFast::dump_flattened(int on)
{
    the_dump_flattened = on;
}

std::string grViewRendererFast::dump_prefix()
{
    return dump_prefix_text();
}

void grViewRendererFast::dump_prefix(const std::string& path)
{
    dump_prefix_text() = path;
}
