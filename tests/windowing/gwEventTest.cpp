#include "gwHeadlessWindow.h"
#include "tsEventLog.h"

#include "utTypeID.h"

#include <gtest/gtest.h>

TEST(gwInput, delivers_each_kind_of_event_to_its_call_list)
{
    gwHeadlessWindow window(640, 480);
    tsEventLog log(window.input());
    window.input().post(gwKeyEvent(&window, 10, 20, gwMODIFIER_SHIFT, gwPRESSED, gwMOUSE_BUTTON, 1));
    window.input().post(gwMouseEvent(&window, 11, 20));
    window.input().post(gwSpaceballEvent(&window, 12, 20, 0, giVector3(0, 0, 1), giVector3(1, 0, 0)));
    window.input().post(gwEvent(&window));
    // An event brings what is not given back to nothing when it is made another one.
    gwKeyEvent event(&window, 1, 2, gwMODIFIER_ALT, gwPRESSED, gwMOUSE_WHEEL, 1, -2.5);
    window.input().post(event);
    event.initialise_key(gwMOUSE_BUTTON, 3, gwRELEASED);
    EXPECT_EQ(event.window(), nullptr);
    window.input().post(event);
    EXPECT_EQ(log.taken(),
              "press 2:1 at 10,20 mods 2; move to 11,20 mods 0; ball 1 0 0 turn 0 0 1 for 0.0166667 at 12,20; "
              "event ; press 5:1 at 1,2 mods 4 delta -2.5; release 2:3 at 0,0 mods 0; ");
}

TEST(gwWindow, device_box_ends_at_the_last_pixel)
{
    gwHeadlessWindow headless(640, 480);
    gwWindow& window = headless;
    EXPECT_EQ(window.device_box(), giBox2(0, 0, 639, 479));
    gwDrawingArea::ut_dynamic_cast(&window)->resize(100, 50);
    EXPECT_EQ(window.device_box(), giBox2(0, 0, 99, 49));
    EXPECT_STREQ(window.ut_dynamic_type().name(), "gwHeadlessWindow");
}
