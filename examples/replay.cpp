// A test of an application's views by a session that is played back: a part is thrown round, spins on, and is caught.
// Time is the session's, so that every run is the same, on every machine: replay
#include "apClockOverride.h"
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRef.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grViewOperations.h"
#include "gr_make_tblock.h"
#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"

#include <iostream>
#include <vector>

namespace
{
// What an application shows in a window; a real one would be made here as it is in the application.
struct Application
{
    explicit Application(std::shared_ptr<dgGLDevice> device)
        : part(new dgClientStructure), area(320, 240), surface(std::move(device), 320, 240),
          canvas(&surface, surface.overlay(), &area, nullptr), hooks(&settings)
    {
        part->add(new dgTriangleBlock(gr_make_box_tblock(giBox3(giPoint3(0, 0, 0), giPoint3(30, 20, 10))), 1));
        dgView& view = canvas.add_view();
        view.root(part.get());
        grViewOperations::isometric(view);
        canvas.redraw();
        settings.set_resource("translations", "mouse_button 1 : trackball qwerty_key 73 : isometric");
        hooks.allow_spinning(1);
        twiddling = std::make_unique<grStdTwiddling>(&area.input(), &settings, &hooks, nullptr);
    }

    dgImage picture()
    {
        dgImage image;
        surface.read_front(image);
        return image;
    }

    dgRef<dgClientStructure> part;
    gwHeadlessWindow area;
    dgGLWindow surface;
    grCanvas canvas;
    gwResourceDB settings;
    grStdTwiddleHooks hooks;
    std::unique_ptr<grStdTwiddling> twiddling;
};

enum Kind
{
    press,
    move,
    release,
    idle
};

struct Step
{
    double time; // seconds since the start
    Kind kind;
    int x, y; // device pixels from the lower left corner
};

// Plays steps, and answers how many idle calls found something to do.
int play(const std::vector<Step>& session, Application& application, apClockOverride& clock)
{
    int busy = 0;
    const double start = clock.time();
    gwHeadlessWindow& area = application.area;
    for (const Step& step : session)
    {
        clock.advance(start + step.time - clock.time());
        switch (step.kind)
        {
        case press: area.input().post(gwKeyEvent(&area, step.x, step.y, 0, gwPRESSED, gwMOUSE_BUTTON, 1)); break;
        case move: area.input().post(gwMouseEvent(&area, step.x, step.y)); break;
        case release: area.input().post(gwKeyEvent(&area, step.x, step.y, 0, gwRELEASED, gwMOUSE_BUTTON, 1)); break;
        case idle: busy += application.twiddling->twiddle_man()->idle() != grIDLE_DONE; break;
        }
    }
    return busy;
}

int failures = 0;

void expect(bool condition, const char* what)
{
    std::cout << (condition ? "ok      " : "FAILED  ") << what << '\n';
    failures += !condition;
}
}

int main()
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
        return std::cerr << "replay: " << error << '\n', 1;
    // Before anything that asks for the time.
    apClockOverride clock;

    const std::vector<Step> thrown{{0.000, press, 160, 120}, {0.016, move, 164, 120}, {0.032, move, 172, 121},
                                   {0.048, move, 180, 122},  {0.064, move, 188, 123}, {0.072, release, 188, 123}};
    const std::vector<Step> waits{{0.016, idle, 0, 0}, {0.032, idle, 0, 0}, {0.048, idle, 0, 0}};
    const std::vector<Step> clicks{{0.016, press, 20, 20}, {0.400, release, 20, 20}, {0.416, idle, 0, 0}};

    Application first(device), second(device);
    const dgImage start = first.picture();
    expect(play(waits, first, clock) == 0, "nothing moves by itself");
    play(thrown, first, clock);
    const dgImage released = first.picture();
    expect(released.rgba != start.rgba, "the drag turns the part");
    expect(play(waits, first, clock) == 3, "it spins on when it is thrown");
    const dgImage later = first.picture();
    expect(later.rgba != released.rgba, "the spin is seen");
    expect(play(clicks, first, clock) == 0, "a click catches it");

    play(thrown, second, clock);
    play(waits, second, clock);
    expect(second.picture().rgba == later.rgba, "the same session shows the same, to the last bit");
    second.twiddling->run_tool(second.canvas.view(0), "isometric");
    expect(second.picture().rgba == start.rgba, "the tool 'isometric' brings the first picture back");
    return failures ? 1 : 0;
}
