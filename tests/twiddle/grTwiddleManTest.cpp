#include "grTwiddleMan.h"

#include "apClockOverride.h"
#include "grMouseWheelZoomTool.h"
#include "gwInput.h"
#include "gwMouseEvent.h"
#include "gwSpaceballEvent.h"
#include "tsRecordingTool.h"

#include <gtest/gtest.h>

namespace
{
using Calls = std::vector<std::string>;

class Manager : public grTwiddleMan
{
public:
    using grTwiddleMan::actions_are_bound;
    using grTwiddleMan::event_pulls_trigger;
    using grTwiddleMan::grTwiddleMan;
    using grTwiddleMan::which_action;
};

// A wheel tool that has nothing to act on and records its twiddle.
class WheelTool : public grMouseWheelZoomTool
{
public:
    explicit WheelTool(tsToolRecord& record) : grMouseWheelZoomTool("", nullptr, nullptr), the_record(record) {}
    ~WheelTool() override { the_record.add("wheel deleted"); }

protected:
    void start_twiddle(const gwKeyEvent&) override { the_record.add("wheel start"); }
    void end_twiddle(const gwKeyEvent&) override { the_record.add("wheel end"); }
    void destruction_twiddle() override { the_record.add("wheel destruction"); }

private:
    tsToolRecord& the_record;
};

class WheelFactory : public grToolFactory
{
public:
    explicit WheelFactory(tsToolRecord& record) : the_record(record) {}
    int identify_tool(utString) const override { return 1; }
    grTwiddleTool* create_tool(int, const utString&) const override { return new WheelTool(the_record); }

private:
    tsToolRecord& the_record;
};

gwKeyEvent button(int number, int transition, int modifiers = 0)
{
    return gwKeyEvent(nullptr, 0, 0, modifiers, transition, gwMOUSE_BUTTON, number);
}

// Buttons 1 and 2 start recording tools with arguments "one" and "two", the wheel a wheel tool.
class Scene
{
public:
    Scene()
    {
        add(grActionTrigger(gwMOUSE_BUTTON, 1, 0, "one"), &the_factory, 7);
        add(grActionTrigger(gwMOUSE_BUTTON, 2, 0, "two"), &the_factory, 7);
        add(grActionTrigger(gwMOUSE_WHEEL, 1, 0, ""), &the_wheel_factory, 1);
    }

    grAction* add(const grActionTrigger& trigger, grToolFactory* factory, int tool)
    {
        auto* action = new grAction(trigger, "record");
        if (factory)
            action->bind(grToolDetail(factory, tool));
        man.actions().add_last(action);
        return action;
    }
    void press(int number) { input.post(button(number, gwPRESSED)); }
    void release(int number) { input.post(button(number, gwRELEASED)); }
    void move() { input.post(gwMouseEvent(nullptr, 1, 1)); }
    void wheel() { input.post(gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1.0)); }
    Calls take() { return record.take(); }

    tsToolRecord record;
    gwInput input;

private:
    tsRecordingFactory the_factory{record};
    WheelFactory the_wheel_factory{record};

public:
    Manager man{&input};
};

const Calls wheel_calls = {"wheel start", "wheel end", "wheel destruction", "wheel deleted"};
}

TEST(grTwiddleMan, drives_a_tool_from_press_to_the_next_press)
{
    Scene scene;
    scene.press(1);
    EXPECT_EQ(scene.take(), Calls{"start one in 1"});
    EXPECT_EQ(scene.man.current_tool_state(), grTWID_TWIDDLING);
    scene.move();
    scene.input.post(gwSpaceballEvent());
    EXPECT_EQ(scene.take(), (Calls{"mouse in 1", "spaceball in 1"}));
    scene.release(1);
    EXPECT_EQ(scene.take(), (Calls{"allow?", "final frame in 1", "end in 2"}));

    // The tool stays and still gets events, a release too many does nothing.
    scene.record.idle_answer = grIDLE_AGAIN;
    EXPECT_EQ(scene.man.idle(), grIDLE_AGAIN);
    scene.move();
    scene.input.post(gwSpaceballEvent());
    scene.release(1);
    EXPECT_EQ(scene.take(), (Calls{"idle in 2", "mouse in 2", "spaceball in 2"}));

    scene.press(3);
    EXPECT_EQ(scene.take(), (Calls{"destruction in 2", "deleted"})) << "also by a press that starts nothing";
    EXPECT_EQ(scene.man.current_tool(), nullptr);
    EXPECT_EQ(scene.man.current_tool_state(), grTWID_NOT_STARTED);
    EXPECT_EQ(scene.man.idle(), grIDLE_DONE);
}

TEST(grTwiddleMan, a_press_ends_and_destroys_the_active_tool_and_starts_the_next)
{
    Scene scene;
    scene.press(1);
    scene.take();
    scene.press(2);
    EXPECT_EQ(scene.take(),
              (Calls{"allow?", "final frame in 1", "end in 2", "destruction in 2", "deleted", "start two in 1"}));
}

TEST(grTwiddleMan, any_release_ends_the_twiddle_unless_the_tool_claims_it)
{
    Scene scene;
    scene.press(1);
    scene.record.allow_key_event = 1;
    scene.take();
    scene.release(1);
    scene.press(2);
    EXPECT_EQ(scene.take(), (Calls{"allow?", "allow?"}));
    EXPECT_EQ(scene.man.current_tool_state(), grTWID_TWIDDLING);

    scene.record.allow_key_event = 0;
    scene.input.post(gwKeyEvent(nullptr, 0, 0, 0, 2, gwQWERTY_KEY, 'Q'));
    EXPECT_EQ(scene.man.current_tool_state(), grTWID_ENDED) << "every transition but 1 is a release";
}

TEST(grTwiddleMan, a_wheel_step_is_one_whole_twiddle)
{
    Scene scene;
    scene.wheel();
    EXPECT_EQ(scene.take(), wheel_calls);

    // Ignored while a tool is active, which is not even asked.
    scene.press(1);
    scene.take();
    scene.wheel();
    EXPECT_EQ(scene.take(), Calls());
    EXPECT_EQ(scene.man.current_tool_state(), grTWID_TWIDDLING);

    // A tool that goes on after its end is destroyed by it.
    scene.release(1);
    scene.take();
    scene.wheel();
    Calls expected = {"destruction in 2", "deleted"};
    expected.insert(expected.end(), wheel_calls.begin(), wheel_calls.end());
    EXPECT_EQ(scene.take(), expected);
}

TEST(grTwiddleMan, a_wheel_tool_is_not_deleted_by_an_event_from_inside_its_start)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call == "wheel start")
            scene.move();
    };
    scene.wheel();
    EXPECT_EQ(scene.take(), wheel_calls);
    EXPECT_EQ(scene.man.current_tool(), nullptr);
}

TEST(grTwiddleMan, a_tool_that_stops_itself_lives_until_the_next_press)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call == "mouse in 1")
        {
            scene.man.stop_twiddling();
            scene.man.delete_current_tool();
        }
    };
    scene.press(1);
    scene.take();
    scene.move();
    EXPECT_EQ(scene.take(), (Calls{"mouse in 1", "final frame in 1", "end in 2"}));
    EXPECT_NE(scene.man.current_tool(), nullptr);
    scene.press(1);
    EXPECT_EQ(scene.take(), (Calls{"destruction in 2", "deleted", "start one in 1"}));
}

TEST(grTwiddleMan, a_tool_that_stops_itself_when_asked_about_a_key_is_ended_once)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call == "allow?")
            scene.man.stop_twiddling();
    };
    scene.press(1);
    scene.take();
    scene.release(1);
    EXPECT_EQ(scene.take(), (Calls{"allow?", "final frame in 1", "end in 2"}));
}

TEST(grTwiddleMan, a_tool_that_is_stopped_while_its_final_frame_is_drawn_is_ended_once)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call != "final frame in 1")
            return;
        scene.man.stop_twiddling();
        scene.release(1);
        scene.press(2);
    };
    scene.press(1);
    scene.take();
    scene.release(1);
    EXPECT_EQ(scene.take(), (Calls{"allow?", "final frame in 1", "allow?", "allow?", "end in 2"}));
    scene.press(3);
    EXPECT_EQ(scene.take(), (Calls{"destruction in 2", "deleted"}));
}

TEST(grTwiddleMan, a_press_from_inside_a_tool_ends_it_and_starts_nothing)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call == "mouse in 1")
            scene.press(2);
    };
    scene.press(1);
    scene.take();
    const grTwiddleTool* tool = scene.man.current_tool();
    scene.move();
    EXPECT_EQ(scene.take(), (Calls{"mouse in 1", "allow?", "final frame in 1", "end in 2"}));
    EXPECT_EQ(scene.man.current_tool(), tool);
}

TEST(grTwiddleMan, calls_from_inside_destruction_neither_destroy_again_nor_start_a_tool)
{
    Scene scene;
    scene.record.inside = [&](const std::string& call)
    {
        if (call != "destruction in 2")
            return;
        scene.man.delete_current_tool();
        scene.man.stop_twiddling();
        scene.press(2);
    };
    scene.press(1);
    scene.release(1);
    scene.take();
    scene.man.delete_current_tool();
    EXPECT_EQ(scene.take(), (Calls{"destruction in 2", "deleted"}));
    EXPECT_EQ(scene.man.current_tool(), nullptr);
}

TEST(grTwiddleMan, stopping_ends_with_a_synthetic_release_and_destroys)
{
    Scene scene;
    scene.man.stop_twiddling();
    scene.press(1);
    scene.man.delete_current_tool();
    EXPECT_EQ(scene.take(), Calls{"start one in 1"}) << "an active tool is not deleted";

    scene.man.stop_twiddling();
    EXPECT_EQ(scene.take(), (Calls{"final frame in 1", "end in 2", "destruction in 2", "deleted"}));
    const gwKeyEvent& event = scene.record.last_key;
    EXPECT_EQ(event.key_type(), gwMOUSE_BUTTON);
    EXPECT_EQ(event.key_number(), 1);
    EXPECT_EQ(event.transition(), 0);
    EXPECT_EQ(event.window(), nullptr);
    EXPECT_EQ(event.x() | event.y() | event.modifiers(), 0);
}

TEST(grTwiddleMan, its_end_is_that_of_an_active_tool)
{
    tsToolRecord record;
    tsRecordingFactory factory(record);
    {
        grTwiddleMan man(nullptr);
        auto* action = new grAction(grActionTrigger(gwMOUSE_BUTTON, 1, 0, "one"), "record");
        action->bind(grToolDetail(&factory, 7));
        man.actions().add_last(action);
        man.process_event(button(1, gwPRESSED));
        record.take();
    }
    EXPECT_EQ(record.take(), (Calls{"final frame in 1", "end in 2", "destruction in 2", "deleted"}));
}

TEST(grTwiddleMan, triggers_are_pulled_by_type_key_and_modifiers)
{
    constexpr int control = gwMODIFIER_CONTROL, shift = gwMODIFIER_SHIFT;
    const struct
    {
        const char* name;
        grActionTrigger trigger;
        gwKeyEvent event;
        int pulled;
    } cases[] = {
        {"same key", {gwMOUSE_BUTTON, 2, 0, ""}, button(2, 1), 1},
        {"release", {gwMOUSE_BUTTON, 2, 0, ""}, button(2, 0), 0},
        {"a transition that is no press", {gwMOUSE_BUTTON, 2, 0, ""}, button(2, 2), 0},
        {"other key", {gwMOUSE_BUTTON, 2, 0, ""}, button(3, 1), 0},
        {"other type", {gwFUNCTION_KEY, 2, 0, ""}, button(2, 1), 0},
        {"no modifiers asked, some held", {gwMOUSE_BUTTON, 2, 0, ""}, button(2, 1, control | shift), 1},
        {"exactly the modifiers", {gwMOUSE_BUTTON, 2, control | shift, ""}, button(2, 1, control | shift), 1},
        {"one modifier too few", {gwMOUSE_BUTTON, 2, control | shift, ""}, button(2, 1, control), 0},
        {"one modifier too many", {gwMOUSE_BUTTON, 2, control, ""}, button(2, 1, control | shift), 0},
        {"any key", {gwMOUSE_BUTTON, -1, 0, ""}, button(9, 1, shift), 1},
        {"any key, whatever the modifiers", {gwMOUSE_BUTTON, -1, control, ""}, button(9, 1, shift), 1},
        {"any key of another type", {gwOTHER_KEY, -1, 0, ""}, button(9, 1), 0},
    };
    for (const auto& c : cases)
    {
        Manager man(nullptr);
        EXPECT_EQ(man.event_pulls_trigger(c.event, c.trigger), c.pulled) << c.name;
        man.actions().add_last(new grAction(c.trigger, "record"));
        EXPECT_EQ(man.which_action(c.event) != nullptr, c.pulled) << c.name;
    }
}

TEST(grTwiddleMan, the_first_matching_action_decides_even_when_unbound)
{
    Scene scene;
    EXPECT_EQ(scene.man.actions_are_bound(), 1);
    const grAction* any = scene.add(grActionTrigger(gwQWERTY_KEY, -1, 0, ""), nullptr, 0);
    scene.add(grActionTrigger(gwQWERTY_KEY, 'A', 0, "late"), scene.man.actions().first()->binding()->factory(), 7);
    EXPECT_EQ(scene.man.actions_are_bound(), 0);
    const gwKeyEvent key_a(nullptr, 0, 0, 0, gwPRESSED, gwQWERTY_KEY, 'A');
    EXPECT_EQ(scene.man.which_action(key_a), any);
    scene.input.post(key_a);
    EXPECT_EQ(scene.take(), Calls());

    scene.man.remove_actions();
    EXPECT_EQ(scene.man.actions_are_bound(), 1) << "none is unbound";
    scene.press(1);
    EXPECT_EQ(scene.take(), Calls());
}

TEST(grTwiddleTool, last_twiddle_details_are_recorded_after_the_end)
{
    apClockOverride clock(5.0);
    Scene scene;
    scene.wheel();
    utString inside_name;
    double inside_time = -1;
    scene.record.inside = [&](const std::string& call)
    {
        if (call == "end in 2")
            grTwiddleTool::get_last_twiddle_details(inside_name, inside_time);
    };
    scene.press(1);
    clock.advance(2.5);
    scene.release(1);
    EXPECT_EQ(inside_name, "grMouseWheelZoomTool") << "at its own end a tool still sees the one before";
    EXPECT_EQ(inside_time, 5.0);

    utString name;
    double time = -1;
    grTwiddleTool::get_last_twiddle_details(name, time);
    EXPECT_EQ(name, "tsRecordingTool");
    EXPECT_EQ(time, 7.5);
    EXPECT_EQ(scene.man.current_tool()->busy_state(), grTWID_BUSY);
}
