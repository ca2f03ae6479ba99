#include "gwHostEvents.h"

#include "gwHeadlessWindow.h"
#include "tsEventLog.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
// Plays commands on a window of 200 x 100 pixels: cursor X Y, flush, scale X Y, button 1 (press) or 0 NUMBER MODS,
// key 1 or 0 TYPE NUMBER MODS, wheel D, fine 0/1, blur.
std::string played(const std::string& script)
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
}

TEST(gwHostEvents, posts_what_a_script_says)
{
    for (const auto& row : ts_table(TS_TABLES "windowing.table", "host_events"))
        EXPECT_EQ(played(row[1]), row[2]) << row[0];
}
