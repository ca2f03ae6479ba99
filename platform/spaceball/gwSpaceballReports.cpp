#include "gwSpaceballReports.h"

#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwSpaceballEvent.h"

#include <algorithm>

namespace
{
constexpr double longest_report_seconds = 0.1; // what comes after a pause has lasted no longer than this

double share(int deflection)
{
    return std::clamp(deflection / gwSpaceballReports::full_deflection, -1.0, 1.0);
}

int key_of_button(int number)
{
    if (number == 1)
        return gwSPACEBALL_RESET;
    int key = number + 1;
    for (const int taken : {gwSPACEBALL_RESET, gwSPACEBALL_MOVED})
        key += key >= taken;
    return key;
}

bool at_rest(const int (&axes)[3])
{
    return axes[0] == 0 && axes[1] == 0 && axes[2] == 0;
}
}

gwSpaceballReports::gwSpaceballReports(gwDrawingArea& area) : the_area(area)
{
    area.input().call_list().add(gwCR_event, coCallFunc::member<&gwSpaceballReports::area_event>(this));
}

void gwSpaceballReports::focus(int on)
{
    if (!on)
        release();
    the_focus = on;
}

void gwSpaceballReports::pointer(int x, int y, int modifiers)
{
    the_x = x;
    the_y = y;
    the_modifiers = modifiers;
}

void gwSpaceballReports::motion(const int (&translation)[3], const int (&rotation)[3], int milliseconds)
{
    if (!the_focus)
        return;
    if (at_rest(translation) && at_rest(rotation))
    {
        release();
        return;
    }
    if (!the_moving || the_interrupted)
    {
        the_moving = 1;
        flush();
        post_key(gwSPACEBALL_MOVED, gwPRESSED); // which ends the interruption
    }
    const double seconds =
        milliseconds > 0 ? std::min(milliseconds / 1000.0, longest_report_seconds) : gwSpaceballEvent::usual_seconds;
    // The screen's z axis points towards the user and turns follow the right-hand rule.
    the_translation += giVector3(share(translation[0]), share(translation[1]), -share(translation[2])) * seconds;
    the_rotation += giVector3(-share(rotation[0]), -share(rotation[1]), share(rotation[2])) * seconds;
    the_seconds += seconds;
}

void gwSpaceballReports::button(int number, int pressed)
{
    if (!the_focus)
        return;
    flush();
    post_key(key_of_button(number), pressed ? gwPRESSED : gwRELEASED);
}

void gwSpaceballReports::flush()
{
    if (the_seconds <= 0)
        return;
    const giVector3 rotation = the_rotation / the_seconds, translation = the_translation / the_seconds;
    const double seconds = the_seconds;
    the_seconds = 0;
    the_rotation = the_translation = giVector3();
    the_area.input().post(gwSpaceballEvent(&the_area, the_x, the_y, the_modifiers, rotation, translation, seconds));
}

void gwSpaceballReports::release()
{
    flush();
    if (!the_moving)
        return;
    the_moving = 0;
    post_key(gwSPACEBALL_MOVED, gwRELEASED);
}

void gwSpaceballReports::area_event(void*, void* data)
{
    if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&gwInput::event(data)))
        key_event(*key);
}

void gwSpaceballReports::key_event(const gwKeyEvent& event)
{
    // While something moves, the wheel does nothing.
    if (event.key_type() != gwMOUSE_WHEEL)
        the_interrupted = event.transition() != gwPRESSED;
}

void gwSpaceballReports::post_key(int number, int transition)
{
    the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, the_modifiers, transition, gwSPACEBALL_BUTTON, number));
}
