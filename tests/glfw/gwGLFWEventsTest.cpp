#include "gwGLFWEvents.h"

#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <GLFW/glfw3.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace
{
// Keeps what was posted as text: "press 2:1 at 10,20 mods 0 delta 0".
class Recorder : public coReceiver
{
public:
    explicit Recorder(gwInput& input)
    {
        input.call_list().add(gwCR_event, this,
                              [](coReceiver* receiver, void*, void* data)
                              { static_cast<Recorder*>(receiver)->add(gwInput::event(data)); });
    }
    std::vector<std::string> take() { return std::exchange(the_events, {}); }

private:
    void add(const gwEvent& event)
    {
        std::ostringstream text;
        if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
            text << (key->transition() == 1 ? "press " : "release ") << int{key->key_type()} << ':' << key->key_number()
                 << " at " << key->x() << ',' << key->y() << " mods " << key->modifiers() << " delta " << key->delta();
        else if (const gwMouseEvent* mouse = gwMouseEvent::ut_dynamic_cast(&event))
            text << "move to " << mouse->x() << ',' << mouse->y() << " mods " << mouse->modifiers();
        the_events.push_back(text.str());
    }
    std::vector<std::string> the_events;
};

struct Fixture
{
    gwHeadlessWindow window{200, 100};
    Recorder recorder{window.input()};
    gwGLFWEvents events{window};
};

using Texts = std::vector<std::string>;
}

TEST(gwGLFWEvents, positions_are_device_pixels_from_the_lower_left_corner)
{
    Fixture f;
    f.events.cursor(0, 0);
    f.events.flush();
    f.events.cursor(199.9, 99.9);
    f.events.flush();
    EXPECT_EQ(f.recorder.take(), (Texts{"move to 0,99 mods 0", "move to 199,0 mods 0"}));

    // 100 x 50 screen coordinates on 200 x 100 pixels.
    f.events.scale(2, 2);
    f.events.cursor(10.5, 20);
    f.events.flush();
    EXPECT_EQ(f.recorder.take(), Texts{"move to 21,59 mods 0"});
}

TEST(gwGLFWEvents, positions_go_on_outside_the_window)
{
    Fixture f;
    f.events.cursor(-0.5, 100);
    f.events.flush();
    EXPECT_EQ(f.recorder.take(), Texts{"move to -1,-1 mods 0"});
}

TEST(gwGLFWEvents, motion_is_posted_once_with_its_last_position)
{
    Fixture f;
    f.events.cursor(1, 1);
    f.events.cursor(2, 2);
    f.events.cursor(3, 3);
    EXPECT_TRUE(f.recorder.take().empty());
    f.events.flush();
    f.events.flush();
    f.events.cursor(3.4, 3.2); // the same pixel
    f.events.flush();
    EXPECT_EQ(f.recorder.take(), Texts{"move to 3,96 mods 0"});
}

TEST(gwGLFWEvents, buttons_act_where_the_pointer_was_last_reported)
{
    Fixture f;
    f.events.cursor(10, 10);
    f.events.button(GLFW_MOUSE_BUTTON_RIGHT, GLFW_PRESS, GLFW_MOD_SHIFT);
    f.events.cursor(20, 10);
    f.events.button(GLFW_MOUSE_BUTTON_RIGHT, GLFW_RELEASE, 0);
    EXPECT_EQ(f.recorder.take(), (Texts{"move to 10,89 mods 0", "press 2:3 at 10,89 mods 2 delta 0",
                                        "move to 20,89 mods 2", "release 2:3 at 20,89 mods 0 delta 0"}));
}

TEST(gwGLFWEvents, a_key_event_carries_the_modifiers_held_besides_the_key)
{
    Fixture f;
    // Before the press a platform may report the bit already, or not yet.
    f.events.key(GLFW_KEY_LEFT_SHIFT, nullptr, GLFW_PRESS, GLFW_MOD_SHIFT);
    EXPECT_EQ(f.recorder.take(), Texts{"press 3:13 at 0,0 mods 0 delta 0"});
    EXPECT_EQ(f.events.modifiers(), 2);
    f.events.key(GLFW_KEY_R, "r", GLFW_PRESS, GLFW_MOD_SHIFT);
    f.events.key(GLFW_KEY_R, "r", GLFW_REPEAT, GLFW_MOD_SHIFT);
    f.events.key(GLFW_KEY_R, "r", GLFW_RELEASE, GLFW_MOD_SHIFT);
    EXPECT_EQ(f.recorder.take(), (Texts{"press 0:82 at 0,0 mods 2 delta 0", "release 0:82 at 0,0 mods 2 delta 0"}));
    f.events.key(GLFW_KEY_LEFT_SHIFT, nullptr, GLFW_RELEASE, GLFW_MOD_SHIFT);
    EXPECT_EQ(f.events.modifiers(), 0);
}

TEST(gwGLFWEvents, held_function_keys_are_modifiers_of_what_follows)
{
    Fixture f;
    f.events.key(GLFW_KEY_F2, nullptr, GLFW_PRESS, 0);
    f.events.button(GLFW_MOUSE_BUTTON_LEFT, GLFW_PRESS, GLFW_MOD_CONTROL);
    f.events.key(GLFW_KEY_F2, nullptr, GLFW_RELEASE, GLFW_MOD_CONTROL);
    EXPECT_EQ(f.recorder.take(), (Texts{"press 1:2 at 0,0 mods 0 delta 0", "press 2:1 at 0,0 mods 17 delta 0",
                                        "release 1:2 at 0,0 mods 1 delta 0"}));
    f.events.key(GLFW_KEY_F2, nullptr, GLFW_PRESS, 0);
    f.events.focus_lost();
    EXPECT_EQ(f.events.modifiers(), 0);
}

TEST(gwGLFWEvents, each_wheel_step_is_one_press)
{
    Fixture f;
    f.events.key(GLFW_KEY_LEFT_CONTROL, nullptr, GLFW_PRESS, 0);
    f.recorder.take();
    f.events.wheel(2);
    f.events.wheel(-1);
    const std::string in = "press 5:1 at 0,0 mods 1 delta 1", out = "press 5:1 at 0,0 mods 1 delta -1";
    EXPECT_EQ(f.recorder.take(), (Texts{in, in, out}));
}

TEST(gwGLFWEvents, a_fine_wheel_is_posted_as_it_turns)
{
    Fixture f;
    f.events.fine_wheel(1);
    f.events.wheel(0.125);
    f.events.wheel(-2);
    EXPECT_EQ(f.recorder.take(), (Texts{"press 5:1 at 0,0 mods 0 delta 0.125", "press 5:1 at 0,0 mods 0 delta -2"}));
}

TEST(gwGLFWEvents, parts_of_a_wheel_step_add_up)
{
    Fixture f;
    for (int i = 0; i < 9; ++i)
        f.events.wheel(0.1);
    EXPECT_TRUE(f.recorder.take().empty());
    f.events.wheel(0.1);
    EXPECT_EQ(f.recorder.take(), Texts{"press 5:1 at 0,0 mods 0 delta 1"});
    // Turning back drops what was left over.
    f.events.wheel(0.5);
    f.events.wheel(-0.9);
    EXPECT_TRUE(f.recorder.take().empty());
    f.events.wheel(-0.1);
    EXPECT_EQ(f.recorder.take(), Texts{"press 5:1 at 0,0 mods 0 delta -1"});
}
