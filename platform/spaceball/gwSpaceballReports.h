#pragma once

#include "coReceiver.h"
#include "giVector3.h"
#include "gw_spaceballExport.h"

class gwDrawingArea;
class gwKeyEvent;

/// Posts what a six-axis device reports as events on the input of a drawing area. It knows no device.
///
/// Reports of motion are gathered until flush is called, which posts one event for all of them: the deflection is their
/// mean over the time, and the event's length is that time, so that a view moves as far as by the single reports. The
/// press of gwSPACEBALL_MOVED comes before the first motion, its release when the device is at rest again. Where
/// another key is pressed and let go meanwhile, what the motion moves may have ended with it: the press comes once
/// more.
///
/// An area without the focus gets nothing: reports are dropped, and a motion that was going on is released.
class GW_SPACEBALL_EXPORT gwSpaceballReports : public coReceiver
{
public:
    /// The deflection of the device's numbers that counts as 1; larger ones count as 1 too.
    static constexpr double full_deflection = 350;

    /// The area is not owned and must outlive this object. It has no focus at first.
    explicit gwSpaceballReports(gwDrawingArea& area);
    gwSpaceballReports(const gwSpaceballReports&) = delete;
    gwSpaceballReports& operator=(const gwSpaceballReports&) = delete;

    void focus(int on);
    /// Where the pointer is, in device pixels, and the modifier bits held: events carry them.
    void pointer(int x, int y, int modifiers);

    /// The device is deflected, in its own numbers: to the right, up and away from the user, and about these axes, of
    /// which one points away from the user, by the left-hand rule. It was so for a number of milliseconds; 0 and less
    /// stand for a usual report, and a tenth of a second is the longest.
    void motion(const int (&translation)[3], const int (&rotation)[3], int milliseconds);
    /// A button, counted from 0, is pressed or released. Button 1, which fits the view on devices with two buttons,
    /// becomes gwSPACEBALL_RESET; the others keep their order, from 1 on, and leave out the numbers that mean
    /// something.
    void button(int number, int pressed);
    /// Posts the motion that was gathered.
    void flush();

private:
    void post_key(int number, int transition);
    void release();
    void area_event(void* sender, void* data);
    void key_event(const gwKeyEvent& event);

    gwDrawingArea& the_area;
    int the_focus = 0;
    int the_x = 0, the_y = 0, the_modifiers = 0;
    int the_moving = 0;      // between press and release
    int the_interrupted = 0; // by another key, which is let go again
    giVector3 the_rotation;
    giVector3 the_translation; // times seconds, summed up
    double the_seconds = 0;    // of the motion gathered
};
