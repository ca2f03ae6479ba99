#include "tsStage.h"

#include "dgClientStructure.h"
#include "dgPolyline.h"
#include "dgRenderNetworkAction.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grTimeoutRenderer.h"
#include "grTimeoutRendererCache.h"
#include "grTimingStats.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "tsScene.h"
#include "utTypeID.h"

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
    }
    ~RefreshPart() override
    {
        dgView::the_global_render_network_action = nullptr;
        the_fast.reset();
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
        on("state_changed") = [](tsArguments&) { grViewRefresherFast::graphics_state_changed(); };
        // Drawing a segment takes so many seconds, give or take a share.
        on("cost") = [this](tsArguments& in)
        {
            dgTraceWindow& surface = the_stage.window().surface;
            surface.cost_per_feature(in.number());
            surface.cost_noise(in.number_or(0));
        };
        // N lines of so many segments in place of a view's network.
        on("lines") = [](tsArguments& in)
        {
            dgView& view = in.view();
            const dgRef<dgStructure> root(new dgClientStructure);
            const int n = in.integer(), segments = in.integer();
            for (int i = 0; i < n; ++i)
                root->add(tsLine(segments)->element(0));
            view.root(root.get());
        };
        // Segments drawn since the last time, in place of the records of their drawing.
        on("drawn") = [this](tsArguments&)
        {
            dgTraceWindow& surface = the_stage.window().surface;
            surface.clear_log();
            the_stage.note({double(surface.features_drawn())});
            surface.reset_features_drawn();
        };
        on("forbid_slices") = [this](tsArguments& in)
        { the_stage.window().renderer->idle_slicing_forbidden(in.integer()); };
        on("block_slices") = [this](tsArguments& in)
        { dgView::the_global_render_network_action = in.integer() ? &the_blocking : nullptr; };
        on("own_action") = [this](tsArguments& in) { in.view().render_network_action(&the_passing); };
        on("resize") = [this](tsArguments& in)
        {
            const int width = in.integer();
            the_stage.window().surface.resize(width, in.integer());
        };
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
        on("refresher") = [this](tsArguments& in)
        {
            const std::string kind = in.word();
            dgViewcoDList views;
            while (in.more())
                views.add_last(&in.view());
            the_refreshers.emplace_back(make(kind, views));
        };
        on("drop_refresher") = [this](tsArguments&)
        {
            refresher();
            the_refreshers.pop_back();
        };
        on("r_start") = [this](tsArguments&) { refresher().base_start_twiddle(); };
        on("frame") = [this](tsArguments& in)
        {
            for (int i = in.integer_or(1); i > 0; --i)
                refresher().base_refresh();
        };
        on("better") = [this](tsArguments&) { refresher().base_idle_refresh(); };
        on("r_idle") = [this](tsArguments&)
        { the_stage.note(refresher().base_idle() == grIDLE_AGAIN ? "again" : "done"); };
        // Idle calls until it has done, 1000 at most; how many.
        on("r_idle_on") = [this](tsArguments&)
        {
            int calls = 1;
            while (refresher().base_idle() == grIDLE_AGAIN && calls < 1000)
                ++calls;
            the_stage.note({double(calls)});
        };
        on("r_end") = [this](tsArguments&) { refresher().base_end_twiddle(); };
        on("force") = [this](tsArguments&) { refresher().force_redraw_on_end_twiddle(); };
        on("better_text") = [this](tsArguments&) { refresher().draw_quality_overrides().text.enabled = 1; };
        on("remove") = [this](tsArguments& in) { refresher().remove(&in.view()); };
        // A line of that many segments (none: the same again, 0: takes it off) as the icon of a view.
        on("icon") = [this](tsArguments& in)
        {
            dgView& view = in.view();
            const int segments = in.integer_or(-1);
            if (segments > 0)
                the_icon = tsLine(segments);
            refresher().set_twiddle_icon(segments == 0 ? nullptr : the_icon.get(), &view);
        };
        on("icon_refs") = [this](tsArguments&) { the_stage.note({double(the_icon->reference_count())}); };
        on("release_icon") = [this](tsArguments&)
        {
            // The refresher's is the only one left.
            dgStructure* icon = the_icon.get();
            the_icon.reset();
            the_icon = dgRef<dgStructure>(icon);
            refresher().set_twiddle_icon(icon, *refresher().views().begin());
        };
        on("redraw_at_end") = [this](tsArguments&) { dynamic_cast<BareRefresher&>(refresher()).redraw_at_end(); };
        on("r_views") = [this](tsArguments&)
        {
            std::string names = "views";
            for (const dgView* view : refresher().views())
                names += " " + the_stage.name_of(view);
            the_stage.note(names);
        };
        on("in_refresh") = [this](tsArguments&) { the_stage.note({double(grViewRefresherFast::in_refresh())}); };
        on("in_full") = [this](tsArguments&) { the_stage.note({double(timeout_refresher().use_full_refresh())}); };
        on("allow_full") = [this](tsArguments& in) { timeout_refresher().allow_full_refresh(in.integer()); };
        on("full_time") = [this](tsArguments& in)
        {
            dgView& view = in.view();
            the_cache.add_timeout_renderer_and_time(&view, in.number());
        };
        on("cached") = [this](tsArguments&) { the_stage.note({double(the_cache.size())}); };
        on("time_frames") = [this](tsArguments& in)
        {
            the_cache.record_refresh_stats(in.integer());
            refresher().enable_twiddle_timings(&the_cache);
        };
        on("timed_frames") = [this](tsArguments& in)
        {
            int n = 0;
            double average = 0;
            the_cache.find_timeout_renderer(&in.view())->twiddle_refresh_stats()->last_stats(100, n, average);
            the_stage.note({double(n), average});
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
        on("fast_renderer") = [this](tsArguments& in) { the_fast = std::make_unique<grViewRendererFast>(&in.view()); };
        on("f_frame") = [this](tsArguments& in)
        {
            for (int i = in.integer_or(1); i > 0; --i)
                fast().refresh(nullptr, 0);
        };
        on("f_frame_with_icon") = [this](tsArguments& in)
        {
            const dgRef<dgStructure> icon = tsLine(in.integer());
            fast().refresh(icon.get(), in.integer_or(0));
        };
        on("f_final") = [this](tsArguments&) { fast().refresh(nullptr, 1); };
        on("f_slice") = [this](tsArguments&) { the_stage.note({double(fast().draw_a_slice())}); };
        // Slices until nothing is left, 3000 at most; how many.
        on("f_slices") = [this](tsArguments&)
        {
            int slices = 0;
            while (slices < 3000 && fast().draw_a_slice())
                ++slices;
            the_stage.note({double(slices)});
        };
        on("f_force") = [this](tsArguments& in) { fast().force_full_refresh(in.integer()); };
        on("f_time") = [this](tsArguments&) { the_stage.note({fast().refresh_time()}); };
        // The method of drawing, the share, all primitives and those of a slice.
        on("f_share") = [this](tsArguments&)
        {
            the_stage.note({double(fast().draw_method()), fast().draw_ratio(), double(fast().total_prims()),
                            double(fast().slice_prims())});
        };
    }

    grTimeoutRendererCache the_cache{16};
    std::vector<std::unique_ptr<grViewRefresher>> the_refreshers;
    dgRef<dgStructure> the_icon;
    std::unique_ptr<grViewRendererFast> the_fast;
    BlockSlices the_blocking{1}, the_passing{0};
};
}

std::unique_ptr<tsPart> ts_refresh_part(tsStage& stage)
{
    return std::make_unique<RefreshPart>(stage);
}
