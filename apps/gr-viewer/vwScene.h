#pragma once

#include "coReceiver.h"
#include "dgRenderer.h"
#include "grIdleAction.h"
#include "vwFrameTimes.h"
#include "vwRefresher.h"

#include <memory>
#include <vector>

class dgStructure;
class dgView;
class dgWindow;
class grStdTwiddling;
class grView;
class gwDrawingArea;
class gwResourceDB;
class vwHooks;
class vwStatsBars;

/// How a scene is set up.
struct vwSceneSettings
{
    int views = 1;        ///< in a grid, the first one at the upper left
    double framerate = 0; ///< frames per second to hold while a view moves, 0: what the resources say
    int stats = 0;        ///< draw frame times as bars over the first view
    vwRefresher refresher = vwREFRESHER_FAST; ///< what redraws views that move
};

/// A model in one or several views on a window, with the library's tools on the window's input: all of the viewer but
/// the window itself. At most one scene exists at a time, because the overlay callback is process-wide.
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
    /// Makes all of the model seen in every view, however much of it came late, and draws them.
    void fit();
    /// One idle call of the twiddle manager: 0 when there is nothing more to do.
    grIdleAction idle();

    /// The frames that events, idle calls and redraws have drawn, with the library's time since the scene was made.
    const vwFrameTimes& frame_times() const { return the_frame_times; }
    int n_views() const { return static_cast<int>(the_views.size()); }
    dgView& view(int i) const { return *the_views[i].view; }
    dgRenderer& renderer() { return the_renderer; }
    /// 1 while a tool exists, active or spinning on.
    int has_tool() const;
    /// Number of times that a view was drawn.
    int frames_drawn() const { return the_frames_drawn; }

private:
    struct ViewPair
    {
        std::unique_ptr<dgView> view;
        std::unique_ptr<grView> companion; // goes before its view
    };
    static void drawn(dgView& view);
    void make_view(dgStructure& model, int number);
    void lay_out();
    void start_timing();
    void end_timing();

    gwDrawingArea& the_area;
    dgRenderer the_renderer;
    std::vector<ViewPair> the_views;
    std::unique_ptr<vwHooks> the_hooks;
    std::unique_ptr<grStdTwiddling> the_twiddling;
    std::unique_ptr<vwStatsBars> the_stats_bars; // null: not asked for
    vwFrameTimes the_frame_times;
    vwStopwatch the_stopwatch;
    double the_start_time;
    int the_frames_drawn = 0;
    int the_frames_before = 0; // when the stopwatch was started
};
