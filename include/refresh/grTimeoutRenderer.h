#pragma once

#include "coPageArr.h"
#include "dgNetworkPlace.h"
#include "grElementCategory.h"
#include "grElementInfo.h"
#include "grExport.h"
#include "grIdleAction.h"

#include <memory>

class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgRenderer;
class dgStructure;
class dgView;
class grFollowedShare;
class grNetworkSample;
class grTimingStats;

/// Draws one view within a time for each frame, and learns how fast it can.
///
/// At first a frame draws elements in order until the time is over. Once the speed is known, a frame draws of each
/// category of elements a share that fits the time; whole elements are drawn or left out. Where that is none at all,
/// the box around the network stands for it. Idle time draws the rest. What is learnt is kept for the next twiddle of
/// the view.
///
/// Speeds are those of primitives: segments of a line, triangles of a block, points of a set. Elements of the same kind
/// draw at the same speed, so that they are one category, which dgGraphicalPrimitive::category numbers: 1 polylines,
/// 2 triangle blocks, 19 point sets, and 84 less than its type code for any other element, of which each counts as one
/// primitive.
class GR_EXPORT grTimeoutRenderer
{
public:
    static constexpr int n_categories = 26;

    /// The view is not owned and must outlive the renderer. nstats is how many times of each kind are remembered; none
    /// when below 1.
    grTimeoutRenderer(dgView* view, int nstats);
    ~grTimeoutRenderer();
    grTimeoutRenderer(const grTimeoutRenderer&) = delete;
    grTimeoutRenderer& operator=(const grTimeoutRenderer&) = delete;

    /// To be called at the start of a twiddle: sets the seconds for a frame and counts the network. point_weight,
    /// line_weight and triangle_weight say how that time is divided among the categories 19, 1 and 2: with 1, 1, 2
    /// triangles get half of it. What one of them cannot use goes to the others, and all other categories get the share
    /// of their primitives that fits the frame; with 1, 1, 1 these three get that too. A network that was edited since
    /// the last twiddle is measured again.
    void get_ready(double budget, int point_weight, int line_weight, int triangle_weight);

    /// Draws one interactive frame into the back buffer.
    void refresh_draw();
    /// Draws more of the picture into the front buffer, for the time of a frame; grIDLE_DONE once all is drawn.
    grIdleAction idle_draw();
    /// Whether idle_draw would draw.
    int idle_draw_needed() const;
    /// Draws everything into the back buffer and measures the speed of each category.
    void end_twiddle_draw();

    /// Seconds that drawing everything takes: as recorded, else as the last frame lets expect, else 0.
    double full_refresh_time() const { return the_full_time; }
    void full_refresh_time(double seconds);
    /// Whether that is known. An edit of the network makes it unknown.
    int got_full_refresh_time() const { return the_full_time_recorded || the_rates_measured; }
    /// Records the time of a frame of a twiddle.
    void twiddle_refresh_time(double seconds);
    /// The times recorded; null when none are remembered.
    grTimingStats* full_refresh_stats() const { return the_full_stats.get(); }
    grTimingStats* twiddle_refresh_stats() const { return the_twiddle_stats.get(); }
    /// Lets the next twiddle measure again.
    void reset();

    dgView* view() const { return the_view; }

    /// Whether the view is shown and has primitives, as far as they were counted.
    int draws_anything() const;

    /// Primitives in the network, of all categories and of one.
    long long total() const { return the_total; }
    long long count(int category) const { return of(category).count; }
    /// How many of them a thinned frame draws at most, and what share of them.
    long long quota(int category) const { return of(category).quota; }
    double ratio(int category) const { return of(category).ratio; }
    /// Primitives per second; 0 when not measured.
    double rate(int category) const { return of(category).rate; }
    /// Whether a thinned frame has everything in it.
    int all_drawn() const { return the_all_drawn; }

private:
    class Stopwatch;
    const grElementCategory& of(int category) const { return the_categories[static_cast<std::size_t>(category)]; }
    grElementCategory& of(int category) { return the_categories[static_cast<std::size_t>(category)]; }
    void count_structure();
    bool edited() const; // whether the network is another one than was counted
    void forget_measurements();
    void fill_run_lengths();
    void calc_draw_ratios();
    void look_at_view();
    void calc_averages(double seconds);
    void draw_thinned_frame();
    template <class Draw>
    void walk_elements(dgRenderer& renderer, Draw draw);
    int draw_quotas(dgRenderer& renderer);
    long long refresh_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch);
    int idle_draw_elements(dgRenderer& renderer, Stopwatch* stopwatch, dgNetworkPlace& place, int end);
    void forget_idle_place();
    void end_draw_elements(dgRenderer& renderer);
    void erase();
    void draw_box();
    bool visible() const;

    dgView* the_view;
    int the_point_weight = 1;
    int the_line_weight = 1;
    int the_triangle_weight = 1;
    double the_budget = 0;
    coPageArr<grElementInfo> the_infos{256};
    grElementCategories the_categories;
    const dgStructure* the_counted_root = nullptr; // of the network that was counted; only compared
    unsigned long long the_counted_stamp = 0;      // of that network then
    long long the_total = 0;
    int the_drawn_elements = 0; // in the last frame that drew until the time was over, and in the one before
    int the_drawn_before = 0;
    int the_idle_position = 0;     // elements drawn, of those in the order of the network
    dgNetworkPlace the_idle_place; // behind them
    bool the_box_is_shown = false;
    bool the_shows_see_through = false;
    double the_full_time = 0;
    int the_full_time_recorded = 0;
    int the_rates_measured = 0;
    int the_recalc_ratios = 0;
    int the_all_drawn = 0;
    std::unique_ptr<grFollowedShare> the_share;  // of thinned frames
    double the_measured_share = 1;               // that it started with
    std::unique_ptr<grNetworkSample> the_sample; // null until a frame is thinned
    std::unique_ptr<grTimingStats> the_full_stats;
    std::unique_ptr<grTimingStats> the_twiddle_stats;
};
