#pragma once

#include "apClockOverride.h"
#include "grAction.h"
#include "grStdTwiddleHooks.h"
#include "grToolFactory.h"
#include "grTwiddleMan.h"
#include "grViewRefresher.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"
#include "tsScene.h"

using tsLog = std::vector<std::string>;

/// Refresher that draws nothing and logs what it is asked. At the start it keeps the box of the first view's icon.
class tsRecordingRefresher : public grViewRefresher
{
public:
    tsRecordingRefresher(const dgViewcoDList& views, tsLog& log, giBox3& icon_box)
        : grViewRefresher(views), the_log(log), the_icon_box(icon_box)
    {}

protected:
    void start_twiddle() override
    {
        the_log.emplace_back("start refresher");
        const dgStructure* icon = twiddle_icons().empty() ? nullptr : twiddle_icons().first();
        the_icon_box = icon ? icon->bounding_box() : giBox3();
    }
    void refresh() override { the_log.emplace_back("refresh"); }
    void idle_refresh() override { the_log.emplace_back("idle refresh"); }
    grIdleAction idle() override
    {
        the_log.emplace_back("idle refresher");
        return grIDLE_DONE;
    }
    void end_twiddle() override { the_log.emplace_back(forced_redraw() ? "end refresher, forced" : "end refresher"); }

private:
    tsLog& the_log;
    giBox3& the_icon_box;
};

/// Hooks that log their notifications and make recording refreshers. Icons are off.
class tsRecordingHooks : public grStdTwiddleHooks
{
public:
    explicit tsRecordingHooks(tsLog& log) : the_log(log) { draw_trackball_icon(0); }

    grViewRefresher* view_refresher(const grStdTwiddleTool*, const dgViewcoDList& views) override
    {
        return new tsRecordingRefresher(views, the_log, the_icon_box);
    }
    grViewTwiddleDetail* view_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event) override
    {
        if (the_detail_logged)
            the_log.emplace_back("detail");
        return grStdTwiddleHooks::view_detail(tool, event);
    }
    dgView* identify_views(const gwKeyEvent& event, dgViewcoDList& views) override
    {
        dgView* target = grStdTwiddleHooks::identify_views(event, views);
        if (target)
            for (dgView* view : the_grouped_views)
                views.add_last(view);
        return target;
    }
    grWorkPlane* identify_workplane() override { return the_workplane; }
    void update_rotation_centre(const dgView&, const gwKeyEvent&) override { the_log.emplace_back("update centre"); }
    giPoint3 get_world_centre(dgView& view) override
    {
        return the_centre ? *the_centre : grStdTwiddleHooks::get_world_centre(view);
    }
    void start_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { the_log.emplace_back("start"); }
    void mouse_event(grStdTwiddleTool*, const gwMouseEvent&) override { the_log.emplace_back("mouse"); }
    void idle_event(grStdTwiddleTool*, grIdleAction action) override
    {
        the_log.emplace_back(action ? "idle again" : "idle done");
    }
    void final_frame(grStdTwiddleTool*) override { the_log.emplace_back("final frame"); }
    void end_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { the_log.emplace_back("end"); }
    void destruction_twiddle(grStdTwiddleTool*) override { the_log.emplace_back("destruction"); }

    grWorkPlane* the_workplane = nullptr;
    const giPoint3* the_centre = nullptr; // null: the default
    int the_detail_logged = 0;
    std::vector<dgView*> the_grouped_views; // belong to every view, none of them deleted when views are identified
    giBox3 the_icon_box;                    // empty without an icon

private:
    tsLog& the_log;
};

/// A view of 401 x 201 pixels under a twiddle manager. One world unit is 100 pixels and the world's origin shows at
/// (200, 100), as long as nothing moves.
class tsToolScene
{
public:
    static constexpr int width = 401, height = 201;
    static constexpr int middle_x = 200, middle_y = 100;

    tsToolScene()
    {
        the_scene.add_view(the_scene.add_window(width, height));
        camera().view_window(giBox2(-2.005, -1.005, 2.005, 1.005));
    }

    dgView* view() { return the_scene.view(0); }
    dgCamera& camera() { return view()->camera(); }
    dgRenderer& renderer() { return the_scene.renderer(1); }
    dgTraceWindow& surface() { return the_scene.window(1); }
    gwWindow* window() { return &the_scene.input_window(1); }
    void delete_view() { the_scene.delete_view(0); }

    /// Binds mouse button 1 and the wheel to a tool.
    template <class Tool>
    void bind(const char* args = "")
    {
        the_factory = std::make_unique<Factory<Tool>>(*this);
        the_man.remove_actions();
        for (const grActionTrigger& trigger :
             {grActionTrigger(gwMOUSE_BUTTON, 1, 0, args), grActionTrigger(gwMOUSE_WHEEL, 1, 0, args)})
        {
            grAction* action = new grAction(trigger, "tool");
            action->bind(grToolDetail(the_factory.get(), 1));
            the_man.actions().add_last(action);
        }
    }

    void press(int x, int y) { post_button(x, y, gwPRESSED); }
    void move(int x, int y) { the_input.post(gwMouseEvent(window(), x, y)); }
    void release(int x, int y) { post_button(x, y, gwRELEASED); }
    void wheel(int x, int y, double delta, int modifiers = 0)
    {
        the_input.post(gwKeyEvent(window(), x, y, modifiers, gwPRESSED, gwMOUSE_WHEEL, 1, delta));
    }

    /// Where a world point shows.
    giPoint2 device(const giPoint3& world)
    {
        giPoint3 result;
        camera().transform(world, result, dgSPACE_WORLD, dgSPACE_DEVICE);
        return giPoint2(result.x(), result.y());
    }
    giPoint3 world(const giPoint2& device_point)
    {
        giPoint3 result;
        camera().transform(giPoint3(device_point.x(), device_point.y(), 0), result, dgSPACE_DEVICE, dgSPACE_WORLD);
        return result;
    }

    /// What was logged since the last call.
    tsLog taken_log() { return std::exchange(the_log, tsLog()); }

    tsScene the_scene;
    tsLog the_log;
    tsRecordingHooks the_hooks{the_log};
    gwResourceDB the_resources;
    gwInput the_input;

private:
    template <class Tool>
    class Factory : public grToolFactory
    {
    public:
        explicit Factory(tsToolScene& scene) : the_scene(scene) {}
        int identify_tool(utString) const override { return 1; }
        grTwiddleTool* create_tool(int, const utString& args) const override
        {
            return new Tool(args, &the_scene.the_resources, &the_scene.the_hooks);
        }

    private:
        tsToolScene& the_scene;
    };

    void post_button(int x, int y, int transition)
    {
        the_input.post(gwKeyEvent(window(), x, y, 0, transition, gwMOUSE_BUTTON, 1));
    }

    std::unique_ptr<grToolFactory> the_factory;

public:
    grTwiddleMan the_man{&the_input};
};
