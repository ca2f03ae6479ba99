#include "apHighResTime.h"
#include "dgClientStructure.h"
#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgRenderNetworkAction.h"
#include "dgRenderer.h"
#include "dgTransform.h"
#include "dgView.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTimingStats.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "grViewSmoother.h"
#include "gr_time_refresh.h"
#include "tsCommand.h"
#include "tsScene.h"
#include "tsShapes.h"
#include "utTypeID.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace
{
// Tells its virtual operations with the state that they are called in, and the renderers that it then knows.
class BareRefresher : public grViewRefresher
{
public:
    BareRefresher(const dgViewcoDList& views, tsStage& stage) : grViewRefresher(views), the_stage(stage) {}
    void redraw_at_end() { refresh_at_end_of_twiddle(); }

protected:
    void start_twiddle() override { tell("start"); }
    void refresh() override { tell("refresh"); }
    grIdleAction idle() override
    {
        tell("idle");
        return grIDLE_DONE;
    }
    void end_twiddle() override { tell("end"); }
    void view_removed(dgView*) override { tell("removed"); }

private:
    void tell(const std::string& name)
    {
        std::string text = name + " in " + std::to_string(state()) + " on";
        for (const dgRenderer* renderer : renderers())
            for (int i = 1; i <= the_stage.n_windows(); ++i)
                if (the_stage.window(i).renderer == renderer)
                    text += " " + std::to_string(i);
        for (const dgStructure* icon : twiddle_icons())
            text += icon ? ", icon" : "";
        text += (check_views() ? "" : ", renderer missing") + std::string(double_buffered() ? "" : ", single");
        the_stage.called(text);
    }
    tsStage& the_stage;
};

class BlockSlices : public dgRenderNetworkAction
{
public:
    explicit BlockSlices(int blocked) : the_blocked(blocked) {}
    bool check(const dgView&) const override { return the_blocked; }

private:
    int the_blocked;
};

class RefreshPart : public tsPart
{
public:
    explicit RefreshPart(tsStage& stage) : tsPart(stage)
    {
        add_set_up();
        add_refreshers();
        add_renderers();
        add_probes();
        add_timeout_renderer();
        add_smoother();
    }
    ~RefreshPart()
    {
        dgView::the_global_render_network_action = nullptr;
        the_fast.reset();
        the_timeout.reset();
        the_refreshers.clear();
        grViewRefresherFast::cache_graphics(0);
    }

private:
    void add_set_up()
    {
        grViewRendererFast::minimum_framerate(1);
        the_stage.at_end([] { grViewRendererFast::minimum_framerate(1); });
        the_stage.add_setting<double>("minimum_framerate", &grViewRendererFast::minimum_framerate,
                                      &grViewRendererFast::minimum_framerate);
        the_stage.add_setting<int>("cache_graphics", &grViewRefresherFast::cache_graphics,
                                   &grViewRefresherFast::cache_graphics);
        the_stage.add_setting<int>("disable_flattening", &grViewRendererFast::disable_flattening,
                                   &grViewRendererFast::disable_flattening);
        on("state_changed") = [] { grViewRefresherFast::graphics_state_changed(); };
        // Drawing a segment takes so many seconds, give or take a share.
        on("cost") = [this](double seconds, tsOr<0.0> noise)
        {
            dgTraceWindow& surface = the_stage.window().surface;
            surface.cost_per_feature(seconds);
            surface.cost_noise(noise);
        };
        // N lines of so many segments in place of a view's network.
        on("lines") = [](dgView& view, int n, int segments)
        {
            const dgRef<dgStructure> root(new dgClientStructure);
            for (int i = 0; i < n; ++i)
                root->add(tsLine(segments)->element(0));
            view.root(root.get());
        };
        // N more lines, triangles or points elements of so many primitives each, each one further up.
        on("more") = [](dgView& view, const std::string& kind, int n, int size, tsOr<0.0> step)
        {
            for (int i = 0; i < n; ++i)
            {
                if (step != 0)
                    view.root()->add(new dgTransform(giXform3::translation(giVector3(0, step, 0))));
                if (kind == "lines")
                    view.root()->add(tsLine(size)->element(0));
                else if (kind == "points")
                    view.root()->add(new dgPointSet(std::vector<giPoint3>(static_cast<std::size_t>(size))));
                else
                    view.root()->add(ts_block(size));
            }
        };
        on("line_width") = [](dgView& view, int width) { view.root()->add(new dgLineWidth(width)); };
        // Primitives drawn since the last time, in place of the records of their drawing.
        on("drawn") = [this]
        {
            dgTraceWindow& surface = the_stage.window().surface;
            surface.clear_log();
            const auto drawn = surface.features_drawn();
            surface.reset_features_drawn();
            return drawn;
        };
        on("forbid_slices") = [this](int on) { the_stage.window().renderer->idle_slicing_forbidden(on); };
        on("block_slices") = [this](int on)
        { dgView::the_global_render_network_action = on ? &the_blocking : nullptr; };
        on("own_action") = [this](dgView& view) { view.render_network_action(&the_passing); };
        on("resize") = [this](int width, int height) { the_stage.window().surface.resize(width, height); };
    }
    grViewRefresher& refresher()
    {
        if (the_refreshers.empty())
            throw std::runtime_error("no refresher");
        return *the_refreshers.back();
    }
    grViewRefresher* make(const std::string& kind, const dgViewcoDList& views)
    {
        if (kind == "full")
            return new grViewRefresherFull(views);
        if (kind == "fast")
            return new grViewRefresherFast(views);
        if (kind == "timeout")
            return new grViewRefresherTimeout(views, &the_cache, 1, 1, 1, 1);
        if (kind == "bare")
            return new BareRefresher(views, the_stage);
        throw std::runtime_error("no refresher of kind " + kind);
    }
    void add_refreshers()
    {
        on("refresher") = [this](const std::string& kind, const tsViews& views)
        { the_refreshers.emplace_back(make(kind, views)); };
        on("drop_refresher") = [this]
        {
            refresher();
            the_refreshers.pop_back();
        };
        on("r_start") = [this] { refresher().base_start_twiddle(); };
        on("frame") = [this](tsOr<1> frames)
        {
            for (int i = frames; i > 0; --i)
                refresher().base_refresh();
        };
        on("better") = [this] { refresher().base_idle_refresh(); };
        on("r_idle") = [this] { return refresher().base_idle() == grIDLE_AGAIN ? "again" : "done"; };
        // Idle calls until it has done, 1000 at most; how many.
        on("r_idle_on") = [this]
        {
            int calls = 1;
            while (refresher().base_idle() == grIDLE_AGAIN && calls < 1000)
                ++calls;
            return calls;
        };
        on("r_end") = [this] { refresher().base_end_twiddle(); };
        on("force") = [this] { refresher().force_redraw_on_end_twiddle(); };
        on("better_text") = [this] { refresher().draw_quality_overrides().text.enabled = 1; };
        on("overrides") = [this](double facets, double polygons, double text)
        {
            gsRegenerate& overrides = refresher().draw_quality_overrides();
            overrides.facet_tolerance = {1, facets};
            overrides.polygons = {1, polygons};
            overrides.text = {1, text};
        };
        // What is set of facets, polygons and texts, and their values.
        on("quality") = [this]
        {
            const dgDrawQuality q = the_stage.window().renderer->get_pipeline_draw_quality();
            return std::vector<double>{double(q.facet_tolerance_set),  double(q.polygon_regeneration_set),
                                       double(q.text_quality_set),     q.facet_tolerance,
                                       double(q.polygon_regeneration), q.text_quality};
        };
        on("remove") = [this](dgView& view) { refresher().remove(&view); };
        // A line of that many segments (none: the same again, 0: takes it off) as the icon of a view.
        on("icon") = [this](dgView& view, tsOr<-1> segments)
        {
            if (segments > 0)
                the_icon = tsLine(segments);
            refresher().set_twiddle_icon(segments == 0 ? nullptr : the_icon.get(), &view);
        };
        on("icon_refs") = [this] { return the_icon->reference_count(); };
        on("release_icon") = [this]
        {
            // The refresher's is the only one left.
            dgStructure* icon = the_icon.get();
            the_icon.reset();
            the_icon = dgRef<dgStructure>(icon);
            refresher().set_twiddle_icon(icon, *refresher().views().begin());
        };
        on("redraw_at_end") = [this] { dynamic_cast<BareRefresher&>(refresher()).redraw_at_end(); };
        on("r_views") = [this] { return "views " + the_stage.names_of(refresher().views()); };
        on("in_refresh") = [] { return grViewRefresherFast::in_refresh(); };
        on("in_full") = [this] { return timeout_refresher().use_full_refresh(); };
        on("allow_full") = [this](int on) { timeout_refresher().allow_full_refresh(on); };
        on("full_time") = [this](dgView& view, double seconds)
        { the_cache.add_timeout_renderer_and_time(&view, seconds); };
        on("cached") = [this] { return the_cache.size(); };
        on("time_frames") = [this](int n)
        {
            the_cache.record_refresh_stats(n);
            refresher().enable_twiddle_timings(&the_cache);
        };
        on("timed_frames") = [this](dgView& view)
        {
            int n = 0;
            double average = 0;
            the_cache.find_timeout_renderer(&view)->twiddle_refresh_stats()->last_stats(100, n, average);
            return std::vector<double>{double(n), average};
        };
    }
    grViewRefresherTimeout& timeout_refresher() { return dynamic_cast<grViewRefresherTimeout&>(refresher()); }
    grViewRendererFast& fast()
    {
        if (!the_fast)
            throw std::runtime_error("no fast renderer");
        return *the_fast;
    }
    // One fast view renderer at a time.
    void add_renderers()
    {
        on("fast_renderer") = [this](dgView& view) { the_fast = std::make_unique<grViewRendererFast>(&view); };
        on("f_frame") = [this](tsOr<1> frames)
        {
            for (int i = frames; i > 0; --i)
                fast().refresh(nullptr, 0);
        };
        on("f_frame_with_icon") = [this](int segments, tsOr<0> final)
        { fast().refresh(tsLine(segments).get(), final); };
        on("f_final") = [this] { fast().refresh(nullptr, 1); };
        on("f_slice") = [this] { return fast().draw_a_slice(); };
        // Slices until nothing is left, 3000 at most; how many.
        on("f_slices") = [this]
        {
            int slices = 0;
            while (slices < 3000 && fast().draw_a_slice())
                ++slices;
            return slices;
        };
        on("f_force") = [this](int on) { fast().force_full_refresh(on); };
        on("f_time") = [this] { return fast().refresh_time(); };
        // The method of drawing, the share, all primitives and those of a slice.
        on("f_share") = [this]
        {
            return std::vector<double>{double(fast().draw_method()), fast().draw_ratio(), double(fast().total_prims()),
                                       double(fast().slice_prims())};
        };
    }

    grTimeoutRenderer& timeout()
    {
        if (!the_timeout)
            throw std::runtime_error("no time-out renderer");
        return *the_timeout;
    }
    // One time-out renderer at a time. Categories: 1 lines, 2 triangles, 19 points.
    void add_timeout_renderer()
    {
        on("timeout_renderer") = [this](dgView& view) { the_timeout = std::make_unique<grTimeoutRenderer>(&view, 0); };
        on("t_ready") = [this](double budget, tsOr<1> points, tsOr<1> lines, tsOr<1> triangles)
        { timeout().get_ready(budget, points, lines, triangles); };
        on("t_frame") = [this](tsOr<1> frames)
        {
            for (int i = frames; i > 0; --i)
                timeout().refresh_draw();
        };
        on("t_idle") = [this] { return timeout().idle_draw() == grIDLE_AGAIN ? "again" : "done"; };
        on("t_end") = [this] { timeout().end_twiddle_draw(); };
        on("t_reset") = [this] { timeout().reset(); };
        on("t_full_time") = [this](double seconds) { timeout().full_refresh_time(seconds); };
        // Whether the time of full drawing is known, and it.
        on("t_knows") = [this] {
            return std::vector<double>{double(timeout().got_full_refresh_time()), timeout().full_refresh_time()};
        };
        on("t_total") = [this] { return timeout().total(); };
        on("t_all_drawn") = [this] { return timeout().all_drawn(); };
        // Primitives of a category, of those a frame's, their share and a second's.
        on("t_share") = [this](int category)
        {
            return std::vector<double>{double(timeout().count(category)), double(timeout().quota(category)),
                                       timeout().ratio(category), timeout().rate(category)};
        };
    }

    // Each notes the frames and their seconds, and the probe of picking what it picked.
    void add_probes()
    {
        using Probe = std::function<void(dgView*, double, int&, double&)>;
        const auto timed = [this](dgView& view, double seconds, const Probe& probe)
        {
            int frames = -1;
            double elapsed = -1;
            probe(&view, seconds, frames, elapsed);
            the_stage.note_values({double(frames), elapsed});
        };
        on("time_static") = [=](dgView& view, double seconds) { timed(view, seconds, gr_time_static_refresh); };
        on("time_rotating") = [=](dgView& view, double seconds, gi_Axis axis, double angle)
        {
            timed(view, seconds,
                  [=](dgView* v, double s, int& n, double& e) { gr_time_rotating_refresh(v, s, axis, angle, n, e); });
        };
        on("time_fast") = [=](dgView& view, double seconds, gi_Axis axis, double angle)
        {
            timed(view, seconds,
                  [=](dgView* v, double s, int& n, double& e)
                  { gr_time_fast_rotating_refresh(v, s, axis, angle, n, e); });
        };
        on("time_zooming") = [=](dgView& view, double seconds, tsArguments& in)
        {
            std::vector<double> factors;
            while (in.more())
                factors.push_back(in.number());
            const auto zooming = [&](dgView* v, double s, int& n, double& e)
            { gr_time_zooming_refresh(v, s, factors.data(), static_cast<int>(factors.size()), n, e); };
            timed(view, seconds, zooming);
        };
        on("time_network") = [=](dgView& view)
        { timed(view, 0, [](dgView* v, double, int&, double& elapsed) { gr_time_render_network(v, elapsed); }); };
        on("pick_settings") = [this](tsArguments& in)
        {
            dgRenderer& renderer = *the_stage.window().renderer;
            if (in.more())
                renderer.pick_settings({in.integer(), in.integer(), 1});
            return std::vector<double>{double(renderer.pick_settings().largest_count),
                                       double(renderer.pick_settings().lines)};
        };
        on("time_pick") = [=](dgView& view, double seconds)
        {
            int picked = -1;
            timed(view, seconds,
                  [&](dgView* v, double s, int& n, double& e)
                  { gr_time_pick(v, s, n, e, picked, dgPICK_EXACT, 0, 1, 1); });
            return picked;
        };
    }

    // One smoother of the first window at a time.
    void add_smoother()
    {
        on("smoother") = [this]
        {
            the_stage.window().surface.capability(dgCAPABILITY_ACCUMULATION, 1);
            the_stage.window().renderer->accumulate(1);
            the_smoother = std::make_unique<grViewSmoother>(*the_stage.window().renderer);
        };
        on("accumulate") = [this](int on) { the_stage.window().renderer->accumulate(on); };
        on("s_idle") = [this] { return smoother().idle() == grIDLE_AGAIN ? "again" : "done"; };
        // Calls until it has done, 10000 at most; how many, and the seconds of the longest.
        on("s_idle_on") = [this]
        {
            double longest = 0;
            int calls = 0;
            for (bool again = true; again && calls < 10000; ++calls)
            {
                const double start = apHighResTime::time();
                again = smoother().idle() == grIDLE_AGAIN;
                longest = std::max(longest, apHighResTime::time_diff(start, apHighResTime::time()));
            }
            return std::vector<double>{double(calls), longest};
        };
        on("s_restart") = [this] { smoother().restart(); };
        on("s_complete") = [this] { return smoother().complete(); };
    }
    grViewSmoother& smoother()
    {
        if (!the_smoother || !the_stage.window().renderer)
            throw std::runtime_error("no smoother");
        return *the_smoother;
    }

    grTimeoutRendererCache the_cache{16};
    std::vector<std::unique_ptr<grViewRefresher>> the_refreshers;
    dgRef<dgStructure> the_icon;
    std::unique_ptr<grViewRendererFast> the_fast;
    std::unique_ptr<grTimeoutRenderer> the_timeout;
    std::unique_ptr<grViewSmoother> the_smoother;
    BlockSlices the_blocking{1}, the_passing{0};
};
}

std::shared_ptr<void> ts_refresh_part(tsStage& stage)
{
    return std::make_shared<RefreshPart>(stage);
}
