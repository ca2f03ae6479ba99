#pragma once

#include "coReceiver.h"
#include "dgRenderer.h"
#include "grCanvas.h"
#include "grIdleAction.h"
#include "grSection.h"
#include "grSelection.h"
#include "vwEdges.h"
#include "vwFrameTimes.h"
#include "vwOverlay.h"
#include "vwParts.h"
#include "vwSceneSettings.h"

#include <memory>
#include <string>
#include <vector>

class dgStructure;
class dgView;
class dgWindow;
class grSelectionHover;
class grStdTwiddling;
class grViewSmoother;
class gwDrawingArea;
class gwResourceDB;
class vwHooks;
class vwSheet;
class vwStatsBars;

/// A model in one or several views, in a grid or on a sheet of paper, on a window, with the library's tools on the
/// window's input: all of the viewer but the window itself. Unless they are independent, the views follow the camera of
/// the first one when that turns, and can be turned by themselves as well. At most one scene exists at a time, because
/// the overlay callback is process-wide.
///
/// Function keys: 1 help, 2 axes and scale bar, 3 edges, 4 the list of parts, 6 the background. The arrows up and down
/// select the part before and behind.
class vwScene : public coReceiver
{
public:
    /// Nothing is owned; everything must outlive the scene. overlay is the same window as main when there is none. db
    /// is read now and by tools when they start.
    vwScene(dgWindow* main, dgWindow* overlay, gwDrawingArea& area, const gwResourceDB& db, dgStructure& model,
            const vwSceneSettings& settings);
    ~vwScene() override;
    vwScene(const vwScene&) = delete;
    vwScene& operator=(const vwScene&) = delete;

    /// To be called when the window has another size, after the windows given were resized: lays the views out and
    /// draws them.
    void resized();
    /// Draws all views.
    void redraw();
    /// Lets frame times, where they are shown, be written as numbers with the font of a slot of the renderer.
    void stats_font(int slot);
    /// Writes a title on the sheet, where there is one, with the font of a slot of the renderer; once.
    void title(const std::string& text, int font_slot);
    /// What the model consists of, which must outlive the scene and may grow and be cleared; placing is from its
    /// coordinates to those of the structure that is shown.
    void parts(const std::vector<vwPart>& parts, const giXform3& placing);
    /// Lights parts up that are under the pointer.
    void hover();
    /// Forgets what is selected, hidden or see-through, before parts go.
    void forget_parts();
    vwOverlay& overlay() { return *the_overlay; }
    grSelection& selection() { return the_selection; }
    void background(vwBackground background);
    /// Makes all of the model seen in every view, however much of it came late, and draws them.
    void fit();
    /// One idle call of the twiddle manager, and when that has nothing to do, of the one who smooths edges: 0 when
    /// there is nothing more to do.
    grIdleAction idle();
    /// 1 as long as idle calls do nothing but smooth edges: since the last one no event has come.
    int smooths() const { return the_smooths; }

    /// The frames that events, idle calls and redraws have drawn, with the library's time since the scene was made.
    const vwFrameTimes& frame_times() const { return the_frame_times; }
    int n_views() const { return the_canvas.n_views(); }
    dgView& view(int i) const { return the_canvas.view(i); }
    /// Draws the edges of the model in a view that shows it, where they are asked for, as is done behind each picture.
    void draw_edges(dgView& drawn);
    dgRenderer& renderer() { return *the_canvas.renderer(); }
    /// 1 while a tool exists, active or spinning on.
    int has_tool() const;
    /// Number of times that a view was drawn.
    int frames_drawn() const { return the_frames_drawn; }

private:
    static void drawn(dgView& view, void* scene);
    void draw_over(dgView& view);
    void key_event(void* sender, void* data);
    void select_next(int step);
    void make_view(dgStructure& model, int number, int follows);
    void save_cameras();
    void make_sheet(dgStructure& model);
    void fit_views();
    void lay_out();
    void lay_out_sheet();
    void follow_cursor(void* sender, void* data);
    void start_timing();
    void end_timing();

    gwDrawingArea& the_area;
    grCanvas the_canvas;
    std::unique_ptr<vwHooks> the_hooks;
    grSelection the_selection;
    grSection the_section;
    std::unique_ptr<vwSheet> the_sheet; // null: not asked for
    std::unique_ptr<grStdTwiddling> the_twiddling;
    std::unique_ptr<grSelectionHover> the_hover; // null: nothing lights up
    const std::vector<vwPart>* the_parts = nullptr;
    giXform3 the_placing;
    std::unique_ptr<vwOverlay> the_overlay; // null while there are no parts
    std::unique_ptr<vwEdges> the_edges;
    vwBackground the_background;
    int the_axes, the_shows_edges;
    std::unique_ptr<vwStatsBars> the_stats_bars; // null: not asked for
    std::unique_ptr<grViewSmoother> the_smoother;
    int the_smooths = 0;
    vwFrameTimes the_frame_times;
    vwStopwatch the_stopwatch;
    double the_start_time;
    int the_cursor;
    int the_frames_drawn = 0;
    int the_frames_before = 0; // when the stopwatch was started
};
