#include "gwSpaceballReports.h"

#include "coReceiver.h"
#include "gwHeadlessWindow.h"
#include "gwInput.h"
#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"
#include "tsSpaceballLog.h"

#include <gtest/gtest.h>

namespace
{
struct Scene
{
    gwHeadlessWindow window{400, 300};
    tsSpaceballLog log{window.input()};
    gwSpaceballReports reports{window};
    Scene() { reports.focus(1); }
};
}

TEST(gwSpaceballReports, one_event_for_all_reports_of_a_frame)
{
    Scene scene;
    scene.reports.pointer(70, 80, gwMODIFIER_SHIFT);
    scene.reports.motion({350, 0, 0}, {0, 0, 0}, 10);
    scene.reports.motion({0, 350, 0}, {0, 0, 0}, 30);
    EXPECT_EQ(scene.log.taken(), (std::vector<std::string>{"press 321 at 70 80 with 2"}));
    scene.reports.flush();
    // The mean over the time: a quarter of it to the right, three quarters upwards.
    EXPECT_EQ(scene.log.taken(), (std::vector<std::string>{"move 0.25 0.75 0 turn 0 0 0 for 0.04 at 70 80"}));
    scene.reports.flush();
    EXPECT_TRUE(scene.log.taken().empty());
    scene.reports.motion({0, 0, 0}, {0, 0, 0}, 16);
    EXPECT_EQ(scene.log.taken(), (std::vector<std::string>{"release 321 at 70 80 with 2"}));
}

TEST(gwSpaceballReports, axes_are_those_of_the_screen_and_deflections_end_at_1)
{
    Scene scene;
    scene.reports.motion({0, 0, 175}, {700, -70, 35}, 20);
    scene.reports.flush();
    // Away from the user is -z; a left-handed turn is the other way about x and y.
    EXPECT_EQ(scene.log.taken().at(1), "move 0 0 -0.5 turn -1 0.2 0.1 for 0.02 at 0 0");
    scene.reports.motion({35, 0, 0}, {0, 0, 0}, 5000);
    scene.reports.flush();
    EXPECT_EQ(scene.log.taken().at(0), "move 0.1 0 0 turn 0 0 0 for 0.1 at 0 0") << "a pause is no motion";
}

TEST(gwSpaceballReports, the_focused_window_alone_is_told)
{
    Scene scene;
    scene.reports.motion({350, 0, 0}, {0, 0, 0}, 20);
    scene.reports.focus(0);
    EXPECT_EQ(scene.log.taken(),
              (std::vector<std::string>{"press 321 at 0 0 with 0", "move 1 0 0 turn 0 0 0 for 0.02 at 0 0",
                                        "release 321 at 0 0 with 0"}));
    scene.reports.motion({350, 0, 0}, {0, 0, 0}, 20);
    scene.reports.button(0, 1);
    scene.reports.flush();
    EXPECT_TRUE(scene.log.taken().empty());
}

TEST(gwSpaceballReports, buttons_come_behind_the_motion_before_them)
{
    Scene scene;
    scene.reports.motion({350, 0, 0}, {0, 0, 0}, 20);
    scene.reports.button(1, 1);
    scene.reports.button(4, 0);
    EXPECT_EQ(scene.log.taken(),
              (std::vector<std::string>{"press 321 at 0 0 with 0", "move 1 0 0 turn 0 0 0 for 0.02 at 0 0",
                                        "press 31 at 0 0 with 0", "release 5 at 0 0 with 0"}));
}
