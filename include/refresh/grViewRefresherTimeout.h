#pragma once

#include "grViewRefresher.h"

#include <memory>
#include <vector>

class grTimeoutRenderer;
class grTimeoutRendererCache;
class grViewRefresherFull;

/// Draws each view within a share of the time of a frame through the time-out renderers of a cache, and everything once
/// that is known to take less than the time of a frame. Whenever it draws everything it records how long that took.
class GR_EXPORT grViewRefresherTimeout : public grViewRefresher
{
public:
    /// The cache is not owned and must outlive the refresher. frame_rate is in frames per second;
    /// grTimeoutRenderer::get_ready explains the weights.
    grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache, double frame_rate,
                           int point_weight, int line_weight, int triangle_weight);
    /// The same, with the refresher that draws everything, on the same views, which is taken over; null makes one when
    /// it is needed.
    grViewRefresherTimeout(const dgViewcoDList& views, grTimeoutRendererCache* cache, double frame_rate,
                           int point_weight, int line_weight, int triangle_weight, grViewRefresherFull* full_refresher);
    ~grViewRefresherTimeout() override;

    void refresh() override;
    void idle_refresh() override;
    grIdleAction idle() override;
    void end_twiddle() override;

    /// Whether everything is drawn once that fits the time of a frame; 1 by default.
    int allow_full_refresh() const { return the_allow_full_refresh; }
    void allow_full_refresh(int on) { the_allow_full_refresh = on; }

    /// Whether everything is drawn now.
    int use_full_refresh() const { return the_use_full_refresh; }

    UT_DECLARE_TYPE(grViewRefresherTimeout, coReceiver);

protected:
    void view_removed(dgView* view) override;
    int idle_needed() override;

private:
    void initialise(double frame_rate, int point_weight, int line_weight, int triangle_weight);
    void find_full_refresh_time();
    template <class Draw>
    void draw_in_full(Draw draw);
    void draw_within_time();
    void draw_within_time(dgView& view);
    grTimeoutRenderer* timeout_renderer(dgView* view) const;
    std::vector<grTimeoutRenderer*> drawing_renderers() const;
    grViewRefresherFull& full_refresher();

    dgViewcoDList the_sorted_views; // grouped by renderer, for one swap each
    std::unique_ptr<grViewRefresherFull> the_full_refresher;
    int the_allow_full_refresh = 1;
    double the_frame_budget = 0; // seconds
    int the_full_refresh_known = 0;
    int the_use_full_refresh = 0;
    grTimeoutRendererCache* the_cache;
};
