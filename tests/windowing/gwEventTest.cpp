#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwSpaceballEvent.h"

#include "utTypeID.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
// Notes what kind of event came from where.
class EventLog : public coReceiver
{
public:
    explicit EventLog(gwInput& input) { input.call_list().add(gwCR_event, coCallFunc::member<&EventLog::take>(this)); }

    std::string kinds;
    const gwInput* sender = nullptr;
    int last_x = 0;

private:
    void take(void* from, void* data)
    {
        sender = gwInput::sender(from);
        const gwEvent& event = gwInput::event(data);
        if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
            kinds += key->transition() == gwPRESSED ? 'P' : 'R';
        else if (gwMouseEvent::ut_dynamic_cast(&event))
            kinds += 'M';
        else if (gwSpaceballEvent::ut_dynamic_cast(&event))
            kinds += 'S';
        else
            kinds += '?';
        if (const gwPositionalEvent* positional = gwPositionalEvent::ut_dynamic_cast(&event))
            last_x = positional->x();
    }
};
}

TEST(gwInput, delivers_each_kind_of_event_to_its_call_list)
{
    gwHeadlessWindow window(640, 480);
    EventLog log(window.input());
    window.input().post(gwKeyEvent(&window, 10, 20, gwMODIFIER_SHIFT, gwPRESSED, gwMOUSE_BUTTON, 1));
    window.input().post(gwMouseEvent(&window, 11, 20));
    window.input().post(gwSpaceballEvent(&window, 12, 20, 0, giVector3(0, 0, 1), giVector3(1, 0, 0)));
    EXPECT_EQ(log.last_x, 12);
    window.input().post(gwKeyEvent(&window, 13, 20, 0, gwRELEASED, gwMOUSE_BUTTON, 1));
    window.input().post(gwEvent(&window));
    EXPECT_EQ(log.kinds, "PMSR?");
    EXPECT_EQ(log.last_x, 13) << "an event without a position is no positional event";
    EXPECT_EQ(log.sender, &window.input());
}

TEST(gwKeyEvent, initialise_key_clears_what_is_not_given)
{
    gwHeadlessWindow window(10, 10);
    gwKeyEvent event(&window, 1, 2, gwMODIFIER_ALT, gwPRESSED, gwMOUSE_WHEEL, 1, -2.5);
    EXPECT_EQ(event.delta(), -2.5);
    event.initialise_key(gwMOUSE_BUTTON, 1, gwRELEASED);
    EXPECT_EQ(event.key_type(), gwMOUSE_BUTTON);
    EXPECT_EQ(event.key_number(), 1);
    EXPECT_EQ(event.transition(), 0);
    EXPECT_EQ(event.window(), nullptr);
    EXPECT_EQ(event.x(), 0);
    EXPECT_EQ(event.y(), 0);
    EXPECT_EQ(event.modifiers(), 0);
    EXPECT_EQ(event.delta(), 0.0);
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
