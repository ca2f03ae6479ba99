#include "gwHostEvents.h"

#include "gwHeadlessWindow.h"
#include "tsEventLog.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
// Plays commands on a window of 200 x 100 pixels: cursor X Y, flush, scale X Y, button 1 (press) or 0 NUMBER MODS,
// key 1 or 0 TYPE NUMBER MODS, wheel D, fine 0/1, blur.
std::string played(const char* script)
{
    gwHeadlessWindow window(200, 100);
    tsEventLog log(window.input());
    gwHostEvents events(window);
    std::istringstream words(script);
    for (std::string command; words >> command;)
    {
        const auto number = [&]
        {
            double value = 0;
            words >> value;
            return value;
        };
        const auto whole = [&] { return static_cast<int>(number()); };
        const double first = command == "flush" || command == "blur" ? 0 : number();
        if (command == "flush")
            events.flush();
        else if (command == "blur")
            events.focus_lost();
        else if (command == "cursor")
            events.pointer(first, number());
        else if (command == "scale")
            events.scale(first, number());
        else if (command == "wheel")
            events.wheel(first);
        else if (command == "fine")
            events.fine_wheel(first != 0);
        else
        {
            const int type = command == "key" ? whole() : gwMOUSE_BUTTON;
            const int what = whole(), mods = whole();
            if (command == "button")
                events.button(what, static_cast<int>(first), mods);
            else if (command == "key")
                events.key({static_cast<gwKeyType>(type), what}, static_cast<int>(first), mods);
        }
    }
    return log.taken() + "mods " + std::to_string(events.modifiers());
}

const struct
{
    const char* name;
    const char* script;
    const char* posted;
} scripts[] = {
    {"positions count from the lower left corner", "cursor 0 0 flush cursor 199.9 99.9 flush",
     "move to 0,99 mods 0; move to 199,0 mods 0; mods 0"},
    {"100 x 50 screen coordinates on 200 x 100 pixels", "scale 2 2 cursor 10.5 20 flush",
     "move to 21,59 mods 0; mods 0"},
    {"half a pixel to a coordinate", "scale 0.5 0.5 cursor 10 20 flush", "move to 5,89 mods 0; mods 0"},
    {"a window without size keeps its scale", "scale 2 2 scale 0 2 cursor 10 20 flush", "move to 20,59 mods 0; mods 0"},
    {"positions go on outside the window", "cursor -0.5 100 flush", "move to -1,-1 mods 0; mods 0"},
    {"motion is posted once, with its last position", "cursor 1 1 cursor 3 3 flush flush cursor 3.4 3.2 flush",
     "move to 3,96 mods 0; mods 0"},
    {"motion waits for what comes next", "cursor 1 1", "mods 0"},
    {"buttons act where the pointer was last", "cursor 10 10 button 1 3 2 cursor 20 10 button 0 3 0",
     "move to 10,89 mods 0; press 2:3 at 10,89 mods 2; move to 20,89 mods 2; "
     "release 2:3 at 20,89 mods 0; mods 0"},
    // Before the press a platform may report the bit already, or not yet.
    {"a modifier key does not modify itself", "key 1 3 13 2 key 1 0 82 2 key 0 0 82 2",
     "press 3:13 at 0,0 mods 0; press 0:82 at 0,0 mods 2; release 0:82 at 0,0 mods 2; mods 2"},
    {"its release ends it", "key 1 3 13 0 key 0 3 13 2",
     "press 3:13 at 0,0 mods 0; release 3:13 at 0,0 mods 0; mods 0"},
    {"held function keys modify what follows", "key 1 1 2 0 button 1 1 1 key 0 1 2 1",
     "press 1:2 at 0,0 mods 0; press 2:1 at 0,0 mods 17; release 1:2 at 0,0 mods 1; mods 1"},
    {"the thirteenth function key and the key with shift's number modify nothing",
     "key 1 1 12 0 key 1 1 13 0 key 1 0 13 0 button 1 1 0",
     "press 1:12 at 0,0 mods 0; press 1:13 at 0,0 mods 16384; press 0:13 at 0,0 mods 16384; "
     "press 2:1 at 0,0 mods 16384; mods 16384"},
    {"nothing is held without the focus", "key 1 1 2 0 button 1 2 0 blur button 0 2 0",
     "press 1:2 at 0,0 mods 0; press 2:2 at 0,0 mods 16; release 2:2 at 0,0 mods 16; mods 0"},
    {"each wheel step is one press", "key 1 3 14 0 wheel 2 wheel -1",
     "press 3:14 at 0,0 mods 0; press 5:1 at 0,0 mods 1 delta 1; press 5:1 at 0,0 mods 1 delta 1; "
     "press 5:1 at 0,0 mods 1 delta -1; mods 1"},
    {"a fine wheel is posted as it turns", "fine 1 wheel 0.125 wheel -2",
     "press 5:1 at 0,0 mods 0 delta 0.125; press 5:1 at 0,0 mods 0 delta -2; mods 0"},
    {"parts of a step do not count", "wheel 0.3 wheel 0.3 wheel 0.3", "mods 0"},
    {"but add up", "wheel 0.3 wheel 0.3 wheel 0.4", "press 5:1 at 0,0 mods 0 delta 1; mods 0"},
    {"turning back drops what was left over", "wheel 0.5 wheel -0.9 flush wheel -0.1",
     "press 5:1 at 0,0 mods 0 delta -1; mods 0"},
};
}

TEST(gwHostEvents, posts_what_a_script_says)
{
    for (const auto& c : scripts)
        EXPECT_EQ(played(c.script), c.posted) << c.name;
}
