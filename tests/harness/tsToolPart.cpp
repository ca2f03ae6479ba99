#include "dgClientStructure.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgView.h"
#include "giXform3.h"
#include "grAction.h"
#include "grCameraViewCache.h"
#include "grMouseWheelZoomTool.h"
#include "grSection.h"
#include "grSelection.h"
#include "grSelectionHover.h"
#include "grStdToolFactory.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grStdViewTwiddleTool.h"
#include "grToolFactory.h"
#include "grTwiddleMan.h"
#include "grView.h"
#include "grViewCubeTool.h"
#include "grViewRefresher.h"
#include "grWorkPlane.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"
#include "gwSpaceballEvent.h"
#include "tsCommand.h"
#include "tsScene.h"
#include "tsScript.h"
#include "utTypeID.h"

#include <cmath>
#include <stdexcept>

namespace
{
// Draws nothing and tells what it is asked. At the start it keeps the box of the first view's icon.
class TellingRefresher : public grViewRefresher
{
public:
    TellingRefresher(const dgViewcoDList& views, tsStage& stage, giBox3& icon_box)
        : grViewRefresher(views), the_stage(stage), the_icon_box(icon_box)
    {}

protected:
    void start_twiddle() override
    {
        const dgStructure* icon = twiddle_icons().empty() ? nullptr : twiddle_icons().first();
        the_icon_box = icon ? icon->bounding_box() : giBox3();
        the_stage.called("start refresher");
    }
    void refresh() override { the_stage.called("refresh"); }
    void idle_refresh() override { the_stage.called("idle refresh"); }
    grIdleAction idle() override
    {
        the_stage.called("idle refresher");
        return grIDLE_DONE;
    }
    void end_twiddle() override { the_stage.called(forced_redraw() ? "end refresher, forced" : "end refresher"); }

private:
    tsStage& the_stage;
    giBox3& the_icon_box;
};

// Tells its notifications, and answers what a script has set.
class TellingHooks : public grStdTwiddleHooks
{
public:
    explicit TellingHooks(tsStage& stage) : the_stage(stage) { draw_trackball_icon(0); }

    grViewTwiddleDetail* view_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event) override
    {
        the_stage.called("detail", 1);
        return grStdTwiddleHooks::view_detail(tool, event);
    }
    grStructureTwiddleDetail* structure_detail(const grStdTwiddleTool* tool, const gwKeyEvent& event) override
    {
        the_stage.called("structure_detail", 1);
        return grStdTwiddleHooks::structure_detail(tool, event);
    }
    dgView* identify_views(const gwKeyEvent& event, dgViewcoDList& views) override
    {
        the_stage.called("identify_views", 1);
        dgView* target = grStdTwiddleHooks::identify_views(event, views);
        if (target)
            for (const std::string& name : the_group)
                if (dgView* view = the_stage.find_view(name))
                    views.add_last(view);
        return target;
    }
    int locked_view(const dgView* view, const grStdTwiddleTool* tool) override
    {
        the_stage.called("locked?", 1);
        return grStdTwiddleHooks::locked_view(view, tool);
    }
    grViewRefresher* view_refresher(const grStdTwiddleTool* tool, const dgViewcoDList& views) override
    {
        std::string names = "refresher for";
        for (const dgView* view : views)
            names += " " + the_stage.name_of(view);
        the_stage.called("make_refresher", 1);
        if (the_views_are_told)
            the_stage.note(names);
        if (!the_own_refreshers)
            return new TellingRefresher(views, the_stage, the_icon_box);
        grViewRefresher* refresher = grStdTwiddleHooks::view_refresher(tool, views);
        if (the_views_are_told)
            the_stage.note(refresher->ut_dynamic_type().name());
        if (the_icon)
            refresher->set_twiddle_icon(the_icon.get(), views.first());
        return refresher;
    }
    grWorkPlane* identify_workplane() override
    {
        the_stage.called("workplane", 1);
        return the_workplane.get();
    }
    dgStructure* identify_structure() override
    {
        the_stage.called("structure", 1);
        return the_structure.get();
    }
    void picked(grStdTwiddleTool*, const std::vector<dgPickHit>& hits) override
    {
        the_stage.called("picked " + std::to_string(hits.size()));
    }
    void selection_changed(grStdTwiddleTool*, grSelection&) override { the_stage.called("selection changed"); }
    void aperture_defined(const gwKeyEvent& first, const gwKeyEvent& second) override
    {
        the_stage.called("aperture");
        the_stage.note_values({double(first.x()), double(first.y()), double(second.x()), double(second.y())});
    }
    void update_rotation_centre(const dgView&, const gwKeyEvent&) override { the_stage.called("update centre"); }
    giPoint3 get_world_centre(dgView& view) override
    {
        const giPoint3 centre = the_centre ? *the_centre : grStdTwiddleHooks::get_world_centre(view);
        the_stage.called("centre", 1);
        return centre;
    }
    void start_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { the_stage.called("start"); }
    void mouse_event(grStdTwiddleTool*, const gwMouseEvent&) override { the_stage.called("mouse"); }
    void idle_event(grStdTwiddleTool*, grIdleAction action) override
    {
        the_stage.called(action ? "idle again" : "idle done");
    }
    void final_frame(grStdTwiddleTool*) override { the_stage.called("final frame"); }
    void end_twiddle(grStdTwiddleTool*, const gwKeyEvent&) override { the_stage.called("end"); }
    void destruction_twiddle(grStdTwiddleTool*) override { the_stage.called("destruction"); }

    std::vector<std::string> the_group; // views that belong to every view
    std::unique_ptr<grWorkPlane> the_workplane;
    dgRef<dgStructure> the_structure, the_icon;
    std::unique_ptr<giPoint3> the_centre; // null: the default
    int the_own_refreshers = 0;
    int the_views_are_told = 0;
    giBox3 the_icon_box; // empty without an icon

private:
    tsStage& the_stage;
};

// How telling tools answer; "end" also tells the event.
struct ToolAnswers
{
    int claims = 0, again = 0;
};

// Tells every call with the state that it is made in, and its start with its arguments. The wheel variant derives from
// the tool of the wheel, and so lives for one event.
template <class Base>
class TellingTool : public Base
{
public:
    TellingTool(tsStage& stage, const ToolAnswers& answers, const utString& args)
        : Base(args, nullptr, nullptr), the_stage(stage), the_answers(answers)
    {}
    ~TellingTool() override { the_stage.called("tool deleted"); }
    int allow_key_event_when_active(const gwKeyEvent&) const override
    {
        the_stage.called("tool asked");
        return the_answers.claims;
    }

protected:
    void start_twiddle(const gwKeyEvent&) override
    {
        tell(this->args().str().empty() ? "start" : "start " + this->args().str());
    }
    void mouse_event(const gwMouseEvent&) override { tell("mouse"); }
    void spaceball_event(const gwSpaceballEvent&) override { tell("spaceball"); }
    grIdleAction idle_event() override
    {
        tell("idle");
        return the_answers.again ? grIDLE_AGAIN : grIDLE_DONE;
    }
    void final_frame() override { tell("final frame"); }
    void end_twiddle(const gwKeyEvent& event) override
    {
        utString name;
        double time;
        grTwiddleTool::get_last_twiddle_details(name, time);
        the_stage.called("previous " + name.str(), 1);
        tell("end by " + std::to_string(event.key_type()) + " " + std::to_string(event.key_number()) + " at " +
             std::to_string(event.x()) + " " + std::to_string(event.y()));
    }
    void destruction_twiddle() override { tell("destruction"); }

private:
    void tell(const std::string& call) { the_stage.called("tool " + call + " in " + std::to_string(this->state())); }
    tsStage& the_stage;
    const ToolAnswers& the_answers;
};

// The application's factory: "record" and "wheel" are telling tools, "cube" is that of a view cube.
class TellingFactory : public grToolFactory
{
public:
    TellingFactory(tsStage& stage, ToolAnswers& answers, grStdTwiddleHooks* hooks)
        : the_stage(stage), the_answers(answers), the_hooks(hooks)
    {}
    int identify_tool(utString name) const override
    {
        return name == "record" ? 7 : name == "wheel" ? 8 : name == "cube" ? 9 : -1;
    }
    grTwiddleTool* create_tool(int tool, const utString& args) const override
    {
        the_stage.called("create", 1);
        if (tool == 9)
            return new grViewCubeTool(args, nullptr, the_hooks);
        if (tool == 8)
            return new TellingTool<grMouseWheelZoomTool>(the_stage, the_answers, args);
        return new TellingTool<PlainTool>(the_stage, the_answers, args);
    }

private:
    struct PlainTool : grTwiddleTool
    {
        PlainTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks*) : grTwiddleTool(args, db) {}
    };
    tsStage& the_stage;
    ToolAnswers& the_answers;
    grStdTwiddleHooks* the_hooks;
};

class ToolPart : public tsPart
{
public:
    explicit ToolPart(tsStage& stage) : tsPart(stage), the_hooks(std::make_unique<TellingHooks>(stage))
    {
        add_set_up();
        add_hooks();
        add_selection();
        add_events();
        add_queries();
    }
    ~ToolPart()
    {
        the_hover.reset();
        the_twiddling.reset();
        grStdViewTwiddleTool::delete_camera_cache();
    }

private:
    grTwiddleMan& man()
    {
        if (!the_twiddling)
            throw std::runtime_error("nothing is bound");
        return *the_twiddling->twiddle_man();
    }
    // Replaces all actions by those of a text and those that are always there.
    void bind(const std::string& text)
    {
        the_db.set_resource("translations", utString(text));
        if (!the_twiddling)
            the_twiddling = std::make_unique<grStdTwiddling>(&the_input, &the_db, the_hooks.get(), &the_factory);
        else
            the_twiddling->change_translation_actions("translations", &the_db);
        grMouseWheelZoomTool::reread_resources(&the_db);
        grStdToolFactoryOptions options;
        options.use_multi_tools(the_multi);
        the_twiddling->factory()->push_options(options);
    }
    void add_action(tsArguments& in, int bound)
    {
        const gwKeyType type = key_type(in.word());
        const int key = in.integer(), modifiers = in.integer();
        auto* action = new grAction(grActionTrigger(type, key, modifiers, utString(in.rest())), "record");
        if (bound)
            action->bind(grToolDetail(&the_factory, 7));
        man().actions().add_last(action);
    }
    void add_set_up()
    {
        the_stage.at_end([] { grMouseWheelZoomTool::reread_resources(nullptr); });
        // Mouse button 1 to a tool with its arguments, which last until the next command of this name.
        on("bind") = [this](const tsRest& tool) { bind("mouse_button 1 : " + tool); };
        on("translations") = [this](const tsRest& text) { bind(text); };
        // TYPE KEY MODIFIERS ARGUMENTS: what starts a telling tool, behind all others; one that is not bound starts
        // nothing.
        on("action") = [this](tsArguments& in) { add_action(in, 1); };
        on("unbound_action") = [this](tsArguments& in) { add_action(in, 0); };
        on("multi") = [this](int on) { the_multi = on; };
        on("resource") = [this](const std::string& key, const tsRest& text)
        { the_db.set_resource(utString(key), utString(text)); };
        on("reread_wheel") = [this] { grMouseWheelZoomTool::reread_resources(&the_db); };
        on("claim") = [this](int claims) { the_answers.claims = claims; };
        on("again") = [this](int again) { the_answers.again = again; };
        on("cameras") = [this] { grStdViewTwiddleTool::initialise_cache(&the_db); };
        on("save") = [](dgView& view) { grStdViewTwiddleTool::camera_cache(&view)->push(view); };
        on("has_cameras") = [](dgView& view) { return grStdViewTwiddleTool::camera_cache(&view) != nullptr; };
        on("close_library") = []
        {
            dgS::close();
            grView::default_view_twiddle_locks();
        };
        on("stop") = [this] { man().stop_twiddling(); };
        on("delete_tool") = [this] { man().delete_current_tool(); };
        on("unbind") = [this] { man().remove_actions(); };
        on("drop_twiddling") = [this] { the_twiddling.reset(); };
    }
    void add_hooks()
    {
        TellingHooks& hooks = *the_hooks;
        on("group") = [&](const tsRest& names) { hooks.the_group = ts_words(names); };
        on("centre") = [&](const giPoint3& centre) { hooks.the_centre = std::make_unique<giPoint3>(centre); };
        on("workplane") = [&](const giPoint3& origin, tsOr<1> on)
        {
            hooks.the_workplane = std::make_unique<grWorkPlane>(origin, giVector3(0, 0, 1));
            hooks.the_workplane->on(on);
        };
        on("centre_type") = [&](grTrackballCentreType type) { hooks.set_trackball_centre_type(type); };
        on("spinning") = [&](int on) { hooks.allow_spinning(on); };
        on("icons") = [&](int on) { hooks.draw_trackball_icon(on); };
        on("clipping") = [&](dgBoundingViewType mode) { hooks.clipping_mode(mode); };
        on("all_views") = [&](int on) { hooks.add_all_views_if_double_buffered(on); };
        on("own_refreshers") = [&](tsOr<1> on) { hooks.the_own_refreshers = on; };
        on("tell_views") = [&] { hooks.the_views_are_told = 1; };
        on("fast") = [&](int on) { hooks.use_refresher_fast(on); };
        // As a full, fast or time-out refresher draws.
        on("refresh_by") = [&](const std::string& kind)
        {
            hooks.use_refresher_fast(kind == "fast");
            if (kind == "timeout")
                hooks.enable_timeout_twiddling(10);
        };
        // A line of so many segments, drawn over the first view of the application's own refreshers.
        on("tool_icon") = [&](int segments) { hooks.the_icon = tsLine(segments); };
        on("tool_icon_refs") = [&] { return hooks.the_icon->reference_count(); };
        on("other_hooks_end") = [] { const grStdTwiddleHooks other; };
        on("timeout") = [&](double rate)
        { rate > 0 ? hooks.enable_timeout_twiddling(rate) : hooks.disable_timeout_twiddling(); };
        // In place of a view's root: a line from (0, 0, 0) to (1, 0, 0) called under a transform, twice as large,
        // turned to lie along y, and beginning at (1, 0, 0). The hooks name it.
        on("part") = [this](dgView& view)
        {
            the_placement = giXform3::scaling(2) * giXform3::rotation(giAngle(2 * std::atan(1.0)), gi_Z_AXIS) *
                            giXform3::translation(giVector3(1, 0, 0));
            the_hooks->the_structure = tsLine(1);
            const dgRef<dgStructure> root(new dgClientStructure);
            root->add(new dgTransform(the_placement));
            root->add(new dgStructureCall(the_hooks->the_structure.get()));
            view.root(root.get());
        };
        on("forget_part") = [this] { the_hooks->the_structure.reset(); };
        on("clear_part") = [this] { part().clear(); };
    }
    // Where a path from a view's root leads: the numbers of its elements, each in what the one before it calls.
    static std::string place(const dgElementPath& path, const dgView& view)
    {
        std::string text;
        const dgStructure* structure = view.root();
        for (const dgRef<dgGraphicalElement>& element : path)
        {
            int i = 0;
            while (structure->element(i) != element.get())
                ++i;
            text += (text.empty() ? "" : ".") + std::to_string(i);
            structure = element->called_structure();
        }
        return text.empty() ? "none" : text;
    }
    grSelection& selection()
    {
        if (!the_hooks->selection())
            throw std::runtime_error("nothing is selected");
        return *the_hooks->selection();
    }
    void add_selection()
    {
        // What tools select in and cut open, in views from now on.
        on("selection") = [this](dgView& view)
        {
            the_hooks->selection(&the_selection);
            the_selection.add_view(&view);
        };
        on("section") = [this](dgView& view)
        {
            the_hooks->section(&the_section);
            the_section.add_view(&view);
        };
        on("remove_selection") = [this](dgView& view) { selection().remove_view(&view); };
        on("redraw_section") = [this] { the_section.redraw(); };
        on("select_colours") = [this](double selected, double hovered)
        { selection().colours(gsColour(selected, 0, 0), gsColour(hovered, 0, 0)); };
        on("part_calls") = [this](int n) { selection().part_calls(n); };
        on("hover") = [this] { the_hover = std::make_unique<grSelectionHover>(man(), *the_hooks); };
        on("hovered") = [this](dgView& view) { return place(selection().hovered(), view); };
        // Parts, and triangles behind their block.
        on("selected") = [this](dgView& view)
        {
            std::string text;
            for (const dgElementPath& part : selection().selected())
                text += " " + place(part, view);
            for (const grSelectedTriangles& triangles : selection().selected_triangles())
            {
                text += " " + place(triangles.path, view) + ":";
                for (const int number : triangles.numbers)
                    text += " " + std::to_string(number);
            }
            return text.empty() ? "none" : text;
        };
        // The opacities of the elements of a view's root, 0 of those that are not shown.
        on("opacities") = [this](dgView& view)
        {
            std::vector<double> values;
            for (int i = 0; i < view.root()->nelements(); ++i)
            {
                const dgElementPath part{dgRef<dgGraphicalElement>(view.root()->element(i))};
                values.push_back(selection().is_shown(part) * selection().opacity(part));
            }
            return values;
        };
        // Point and normal; none is "uncut".
        on("cut_at") = [this](dgView& view)
        {
            const std::optional<giPlane>& plane = view.camera().section();
            if (!plane)
                return the_stage.note("uncut");
            const giPoint3& p = plane->point();
            const giVector3& n = plane->normal();
            the_stage.note_values({p.x(), p.y(), p.z(), n.x(), n.y(), n.z()});
        };
        // Runs a tool on a view, with its arguments; 0 when it cannot.
        on("run") = [this](dgView& view, const std::string& tool, const tsRest& arguments)
        {
            man();
            return the_twiddling->run_tool(view, utString(tool), utString(arguments));
        };
    }
    gwWindow* input_window() { return &the_stage.window(the_pointer_window).input; }
    dgStructure& part()
    {
        if (!the_hooks->the_structure)
            throw std::runtime_error("no part");
        return *the_hooks->the_structure;
    }
    static gwKeyType key_type(const std::string& name)
    {
        const std::map<std::string, gwKeyType> types{{"qwerty_key", gwQWERTY_KEY},
                                                     {"function_key", gwFUNCTION_KEY},
                                                     {"mouse_button", gwMOUSE_BUTTON},
                                                     {"other_key", gwOTHER_KEY},
                                                     {"spaceball_button", gwSPACEBALL_BUTTON}};
        if (!types.contains(name))
            throw std::runtime_error("no key type " + name);
        return types.at(name);
    }
    // [TYPE] KEY X Y [MODIFIERS], by default button 1 where the pointer is.
    void post_key(tsArguments& in, int transition)
    {
        std::string word = in.more() ? in.word() : "1";
        gwKeyType type = gwMOUSE_BUTTON;
        if (word.find('_') != std::string::npos)
        {
            type = key_type(word);
            word = in.word();
        }
        the_x = in.more() ? in.integer() : the_x;
        the_y = in.more() ? in.integer() : the_y;
        the_input.post(gwKeyEvent(input_window(), the_x, the_y, ts_read<tsOr<0>>(in), transition, type,
                                  static_cast<int>(ts_value(word))));
    }
    void move(int x, int y)
    {
        the_x = x;
        the_y = y;
        the_input.post(gwMouseEvent(input_window(), x, y));
    }
    void add_events()
    {
        on("pointer") = [this](int window) { the_pointer_window = window; };
        on("press") = [this](tsArguments& in) { post_key(in, gwPRESSED); };
        on("release") = [this](tsArguments& in) { post_key(in, gwRELEASED); };
        on("transition_2") = [this](tsArguments& in) { post_key(in, 2); };
        on("move") = [this](int x, int y) { move(x, y); };
        // To X Y in steps, each after some seconds, from where the pointer is.
        on("drag") = [this](int x, int y, tsOr<4> steps, tsOr<0.0> seconds)
        {
            const int x0 = the_x, y0 = the_y;
            for (int i = 1; i <= steps; ++i)
            {
                the_stage.clock.advance(seconds);
                move(x0 + (x - x0) * i / steps, y0 + (y - y0) * i / steps);
            }
        };
        on("wheel") = [this](int x, int y, double steps, tsOr<0> modifiers)
        {
            the_x = x;
            the_y = y;
            the_input.post(gwKeyEvent(input_window(), x, y, modifiers, gwPRESSED, gwMOUSE_WHEEL, 1, steps));
        };
        on("spaceball") =
            [this](const giVector3& turn, const giVector3& push, tsOr<gwSpaceballEvent::usual_seconds> seconds)
        { the_input.post(gwSpaceballEvent(input_window(), the_x, the_y, 0, turn, push, seconds)); };
        // COUNT calls, SECONDS from one to the next; the last answer is recorded.
        on("idle") = [this](tsOr<1> count, tsOr<0.0> seconds)
        {
            grIdleAction answer = grIDLE_DONE;
            for (int i = 0; i < count; ++i)
            {
                the_stage.clock.advance(seconds);
                answer = the_twiddling ? man().idle() : grIDLE_DONE;
            }
            return answer == grIDLE_AGAIN ? "again" : "done";
        };
    }
    void add_queries()
    {
        using Values = std::vector<double>;
        on("tool") = [this]
        {
            const grTwiddleTool* tool = man().current_tool();
            return tool ? std::string(tool->ut_dynamic_type().name()) + " " +
                              (man().current_tool_state() == grTWID_TWIDDLING ? "active" : "ended") +
                              (tool->busy_state() == grTWID_BUSY ? "" : ", not busy")
                        : "none";
        };
        // Whether the tool may save the camera, and be drawn within a time.
        on("flags") = [this]
        {
            const auto* tool = dynamic_cast<const grStdTwiddleTool*>(man().current_tool());
            return tool ? Values{double(tool->flags().can_save_camera()), double(tool->flags().can_timeout_twiddle())}
                        : Values{};
        };
        on("last_twiddle") = [this]
        {
            utString name;
            double time;
            grTwiddleTool::get_last_twiddle_details(name, time);
            the_stage.note(name.str());
            return the_stage.clock.time() - time;
        };
        on("target") = [this]() -> std::string
        {
            const auto* tool = grStdViewTwiddleTool::ut_dynamic_cast(man().current_tool());
            return !tool ? "no tool" : !tool->detail() ? "no detail" : the_stage.name_of(tool->detail()->target_view());
        };
        on("icon_box") = [this]
        {
            const giBox3& box = the_hooks->the_icon_box;
            if (box.empty())
                return the_stage.note("none");
            the_stage.note_values({box.low().x(), box.low().y(), box.low().z()});
            the_stage.note_values({box.high().x(), box.high().y(), box.high().z()});
        };
        // Number of saved cameras, the position among them, and whether the one there is that of the view.
        on("saved") = [](dgView& view)
        {
            const grCameraViewCache& cache = *grStdViewTwiddleTool::camera_cache(&view);
            return Values{double(cache.count()), double(cache.position()),
                          double(cache.current() && cache.current()->is_position_of(view))};
        };
        // What the spaceball's last event turned a view by about x and y, and moved it by along x, as shares of what
        // full deflection does: 0.05 radians, 2 % of the window's height.
        on("spaceball_share") = [](dgView& view)
        {
            const dgCamera& camera = view.camera();
            const giXform3& x = camera.orientation();
            const giVector3 twice_sine(x(1, 2) - x(2, 1), x(2, 0) - x(0, 2), x(0, 1) - x(1, 0));
            const giVector3 turn = twice_sine * (std::asin(twice_sine.length() / 2) / twice_sine.length());
            return Values{turn.x() / 0.05, turn.y() / 0.05,
                          (giPoint3(0, 0, 0) * x).x() / 0.02 / camera.view_window().height()};
        };
        on("depth_cueing") = [](dgView& view) { return view.renderer()->depth_cueing(); };
        // Where a point of the part is in the world now.
        on("part_at") = [this](const giPoint3& point)
        {
            const dgTransform* own = ut_cast<dgTransform>(the_hooks->the_structure->element(0));
            return point * (own ? own->transform() * the_placement : the_placement);
        };
        // Puts the cursor of the part at an element, or tells where it is.
        on("part_cursor") = [this](tsArguments& in)
        {
            if (in.more())
                part().set_cursor(in.integer());
            else
                the_stage.note_values({double(part().cursor())});
        };
        on("part_elements") = [this] { return the_hooks->the_structure->nelements(); };
        on("actions") = [this]
        {
            for (const grAction* action : man().actions())
                the_stage.note(std::to_string(action->trigger().key_type()) + " " +
                               std::to_string(action->trigger().key_number()) + " " +
                               std::to_string(action->trigger().modifiers()) + " : " + action->action_name().str() +
                               (action->binding()->factory() == &the_factory ? " of the application" : ""));
        };
    }

    gwResourceDB the_db;
    gwInput the_input;
    std::unique_ptr<TellingHooks> the_hooks;
    grSelection the_selection;
    grSection the_section;
    ToolAnswers the_answers;
    TellingFactory the_factory{the_stage, the_answers, the_hooks.get()};
    std::unique_ptr<grStdTwiddling> the_twiddling;
    std::unique_ptr<grSelectionHover> the_hover;
    int the_multi = 0;
    int the_x = 0, the_y = 0, the_pointer_window = 1;
    giXform3 the_placement;
};
}

std::shared_ptr<void> ts_tool_part(tsStage& stage)
{
    return std::make_shared<ToolPart>(stage);
}
