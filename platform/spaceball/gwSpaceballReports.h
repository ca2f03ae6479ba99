#pragma once

#include "giVector3.h"
#include "gw_spaceballExport.h"

class gwDrawingArea;

/// Posts what a six-axis device reports as events on the input of a drawing area. It knows no device.
///
/// Reports of motion are gathered until flush is called, which posts one event for all of them: the deflection is their
/// mean over the time, and the event's length is that time, so that a view moves as far as by the single reports. The
/// press of gwSPACEBALL_MOVED comes before the first motion, its release when the device is at rest again.
///
/// An area without the focus gets nothing: reports are dropped, and a motion that was going on is released.
class GW_SPACEBALL_EXPORT gwSpaceballReports
{
public:
    /// The deflection of the device's numbers that counts as 1; larger ones count as 1 too.
    static constexpr double full_deflection = 350;

    /// The area is not owned and must outlive this object. It has no focus at first.
    explicit gwSpaceballReports(gwDrawingArea& area) : the_area(area) {}
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
    /// becomes gwSPACEBALL_RESET, the others their number plus one.
    void button(int number, int pressed);
    /// Posts the motion that was gathered.
    void flush();

private:
    void post_key(int number, int transition);
    void release();

    gwDrawingArea& the_area;
    int the_focus = 0;
    int the_x = 0, the_y = 0, the_modifiers = 0;
    int the_moving = 0; // between press and release
    giVector3 the_rotation;
    giVector3 the_translation; // times seconds, summed up
    double the_seconds = 0;    // of the motion gathered
};
