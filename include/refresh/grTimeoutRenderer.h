#pragma once

#include "coPageArr.h"
#include "grElementInfo.h"
#include "grExport.h"
#include "grIdleAction.h"

#include <memory>

class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgRenderer;
class dgStructure;
class dgView;
class grTimingStats;

/// Draws one view within a time for each frame, and learns how fast it can.
///
/// At first a frame draws elements in order until the time is over. Once the speed is known, a frame draws of each
/// category of elements a share that fits the time; whole elements are drawn or left out. Idle time draws the rest.
/// What is learnt is kept for the next twiddle of the view.
class GR_EXPORT grTimeoutRenderer
{
public:
    /// Element categories; 1 are polylines, 2 triangle blocks, 19 point sets.
    static constexpr int n_categories = 26;

    /// The view is not owned and must outlive the renderer. nstats is how many times of each kind are remembered; none
    /// when below 1.
    grTimeoutRenderer(dgView* view, int nstats);
    ~grTimeoutRenderer();
    grTimeoutRenderer(const grTimeoutRenderer&) = delete;
    grTimeoutRenderer& operator=(const grTimeoutRenderer&) = delete;

    /// To be called at the start of a twiddle: sets the seconds for a frame and how they are divided among points (a),
    /// lines (b) and triangles (c), and counts the network. With 1, 1, 1 all categories get the same share. A network
    /// that was edited since the last twiddle is measured again.
    void get_ready(double budget, int a, int b, int c);

    /// Draws one interactive frame into the back buffer.
    void refresh_draw();
    /// Draws more of the picture into the front buffer, for the time of a frame; grIDLE_DONE once all is drawn.
    grIdleAction idle_draw();
    /// Draws everything into the back buffer and measures the speed of each category.
    void end_twiddle_draw();

    /// Seconds that drawing everything takes: as recorded, else as the last frame lets expect, else 0.
    double full_refresh_time() const { return the_full_time; }
    void full_refresh_time(double seconds);
    /// Whether that is known.
    int got_full_refresh_time() const { return the_full_time_recorded || the_rates_measured; }
    /// Records the time of a frame of a twiddle.
    void twiddle_refresh_time(double seconds);
    /// The times recorded; null when none are remembered.
    grTimingStats* full_refresh_stats() const { return the_full_stats.get(); }
    grTimingStats* twiddle_refresh_stats() const { return the_twiddle_stats.get(); }
    /// Lets the next twiddle measure again.
    void reset();

    dgView* view() const { return the_view; }

    // What is known of the network, by category.
    int total() const { return the_total; }
    int count(int category) const { return the_count[category]; }
    int quota(int category) const { return the_quota[category]; }
    double ratio(int category) const { return the_ratio[category]; }
    /// Primitives per second; 0 when not measured.
    double rate(int category) const { return the_rate[category]; }
    /// Whether a thinned frame has everything in it.
    int all_drawn() const { return the_all_drawn; }

private:
    class Stopwatch;
    void count_structure();
    /// Whether the network is another one than was counted.
    int edited() const;
    void forget_measurements();
    void fill_run_lengths();
    void calc_draw_ratios();
    void weight_quotas();
    void calc_averages(double seconds);
    void pre_calc_refresh(int idle);
    template <class Draw>
    void walk_elements(dgRenderer& renderer, Draw draw);
    int pre_draw_elements(dgRenderer& renderer);
    int refresh_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch);
    int idle_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch);
    void end_draw_elements(dgRenderer& renderer);
    void erase();
    int visible() const;
    void begin();
    void end();

    dgView* the_view;
    int the_weight_a = 1;
    int the_weight_b = 1;
    int the_weight_c = 1;
    double the_budget = 0;
    coPageArr<grElementInfo> the_infos{256};
    const dgStructure* the_counted_root = nullptr; // of the network that was counted; only compared
    unsigned long long the_counted_stamp = 0;      // of that network then
    int the_total = 0;
    int the_drawn_elements = 0; // in the last frame that drew until the time was over, and in the one before
    int the_drawn_before = 0;
    int the_idle_position = 0; // elements drawn, of those in the order of the network
    double the_full_time = 0;
    int the_full_time_recorded = 0;
    int the_rates_measured = 0;
    int the_recalc_ratios = 0;
    int the_all_drawn = 0;
    int the_walk_finished = 0;
    std::unique_ptr<grTimingStats> the_full_stats;
    std::unique_ptr<grTimingStats> the_twiddle_stats;

    int the_count[n_categories] = {};
    int the_quota[n_categories] = {};
    double the_ratio[n_categories] = {};
    int the_seen[n_categories] = {};
    int the_drawn[n_categories] = {};
    double the_rate[n_categories] = {};
    double the_time[n_categories] = {};
    int the_prims[n_categories] = {};
};
