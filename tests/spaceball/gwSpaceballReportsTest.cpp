#include "gwSpaceballReports.h"

#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "tsEventLog.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace
{
// Plays reports to a window that has the focus: pointer X Y MODS, motion X Y Z RX RY RZ MILLISECONDS, button N 0 or 1,
// focus 0 or 1, flush; key TYPE 0 or 1 is another key of the window.
std::string played(const char* script)
{
    gwHeadlessWindow window(400, 300);
    tsEventLog log(window.input());
    gwSpaceballReports reports(window);
    reports.focus(1);
    std::istringstream words(script);
    for (std::string command; words >> command;)
    {
        int n[7] = {};
        for (int& number : n)
            if (!(words >> number))
            {
                words.clear();
                break;
            }
        if (command == "pointer")
            reports.pointer(n[0], n[1], n[2]);
        else if (command == "motion")
            reports.motion({n[0], n[1], n[2]}, {n[3], n[4], n[5]}, n[6]);
        else if (command == "button")
            reports.button(n[0], n[1]);
        else if (command == "key")
            window.input().post(gwKeyEvent(&window, 0, 0, 0, n[1], static_cast<gwKeyType>(n[0]), 1));
        else if (command == "focus")
            reports.focus(n[0]);
        else
            reports.flush();
    }
    return log.taken();
}

const struct
{
    const char* name;
    const char* script;
    const char* posted;
} scripts[] = {
    // The mean over the time: a quarter of it to the right, three quarters upwards.
    {"one event for all reports of a frame",
     "pointer 70 80 2 motion 350 0 0 0 0 0 10 motion 0 350 0 0 0 0 30 flush flush motion 0 0 0 0 0 0 16",
     "press 4:321 at 70,80 mods 2; ball 0.25 0.75 0 turn 0 0 0 for 0.04 at 70,80; release 4:321 at 70,80 mods 2; "},
    // Away from the user is -z; a left-handed turn is the other way about x and y.
    {"axes are those of the screen and deflections end at 1", "motion 0 0 175 700 -70 35 20 flush",
     "press 4:321 at 0,0 mods 0; ball 0 0 -0.5 turn -1 0.2 0.1 for 0.02 at 0,0; "},
    {"a pause is no motion", "motion 35 0 0 0 0 0 5000 flush",
     "press 4:321 at 0,0 mods 0; ball 0.1 0 0 turn 0 0 0 for 0.1 at 0,0; "},
    {"the focused window alone is told", "motion 350 0 0 0 0 0 20 focus 0 motion 350 0 0 0 0 0 20 button 0 1 flush",
     "press 4:321 at 0,0 mods 0; ball 1 0 0 turn 0 0 0 for 0.02 at 0,0; release 4:321 at 0,0 mods 0; "},
    {"buttons come behind the motion before them", "motion 350 0 0 0 0 0 20 button 1 1 button 4 0",
     "press 4:321 at 0,0 mods 0; ball 1 0 0 turn 0 0 0 for 0.02 at 0,0; press 4:31 at 0,0 mods 0; "
     "release 4:5 at 0,0 mods 0; "},
    {"after a click the device goes on",
     "motion 350 0 0 0 0 0 20 key 2 1 motion 350 0 0 0 0 0 20 key 2 0 motion 350 0 0 0 0 0 20 flush "
     "motion 350 0 0 0 0 0 20 flush",
     "press 4:321 at 0,0 mods 0; press 2:1 at 0,0 mods 0; release 2:1 at 0,0 mods 0; "
     "ball 1 0 0 turn 0 0 0 for 0.04 at 0,0; press 4:321 at 0,0 mods 0; ball 1 0 0 turn 0 0 0 for 0.02 at 0,0; "
     "ball 1 0 0 turn 0 0 0 for 0.02 at 0,0; "},
    {"a key that is let go while it is at rest does nothing",
     "motion 350 0 0 0 0 0 20 key 0 1 motion 0 0 0 0 0 0 20 key 0 0 motion 350 0 0 0 0 0 20",
     "press 4:321 at 0,0 mods 0; press 0:1 at 0,0 mods 0; ball 1 0 0 turn 0 0 0 for 0.02 at 0,0; "
     "release 4:321 at 0,0 mods 0; release 0:1 at 0,0 mods 0; press 4:321 at 0,0 mods 0; "},
};
}

TEST(gwSpaceballReports, posts_what_a_script_says)
{
    for (const auto& c : scripts)
        EXPECT_EQ(played(c.script), c.posted) << c.name;
}

TEST(gwSpaceballReports, every_button_has_a_number_of_its_own)
{
    std::set<std::string> posted{"press 4:321 at 0,0 mods 0; "};
    for (int button = 0; button < 400; ++button)
        EXPECT_TRUE(posted.insert(played(("button " + std::to_string(button) + " 1").c_str())).second) << button;
}
