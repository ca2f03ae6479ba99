#pragma once

#include "gwExport.h"
#include "gwTypes.h"

#include <vector>

class gwDrawingArea;

/// The type and number that key events carry for a key or button.
struct gwHostKey
{
    gwKeyType type = gwQWERTY_KEY;
    int number = 0; ///< 0 when the key is not reported

    bool operator==(const gwHostKey&) const = default;
};

/// The key that a keyboard's layout prints a character on. Letters of either case are one key; control characters are
/// keys of their own: 8 backspace, 9 tabulator, 13 return, 27 escape. Characters outside ASCII are not reported.
GW_EXPORT gwHostKey gw_character_key(unsigned character);

/// The key of an X keysym, as Xlib, GDK and libxkbcommon have it. Those of the number pad are what is printed on them.
GW_EXPORT gwHostKey gw_keysym_key(unsigned keysym);

/// The modifier bits of the state of an X event, as Xlib and GDK have it.
GW_EXPORT int gw_x_modifiers(unsigned state);

/// The key of a usage number of the USB HID keyboard page, as SDL's scancodes are, where it is the same in every
/// layout: function keys, the number pad, other keys. Number 0 for the rest, which are reported by their characters.
GW_EXPORT gwHostKey gw_hid_key(unsigned usage);

/// Posts what a window system or toolkit reports as events on the input of a drawing area. A back end calls it from the
/// toolkit's callbacks, with its keys looked up in a table of its own.
///
/// Positions come in the toolkit's coordinates from the upper left corner of the area, and are turned into device
/// pixels here and nowhere else. Buttons, keys and the wheel act where the pointer was last reported.
///
/// Motion is held back until something else happens or flush is called, and only its last position is posted: where
/// drawing takes longer than the mouse's interval, frames would otherwise pile up behind the pointer. So flush is
/// called when no more events wait.
class GW_EXPORT gwHostEvents
{
public:
    /// The area is not owned and must outlive this object.
    explicit gwHostEvents(gwDrawingArea& area) : the_area(area) {}
    gwHostEvents(const gwHostEvents&) = delete;
    gwHostEvents& operator=(const gwHostEvents&) = delete;

    /// Device pixels per unit of the toolkit's coordinates; 1 until it is set. Values that are not above 0 are ignored.
    void scale(double x_scale, double y_scale);

    /// The pointer moved.
    void pointer(double x, double y);

    /// A button was pressed (1) or released (0): 1 left, 2 middle, 3 right, further ones from 4. modifiers are those
    /// bits of gwModifier for control, shift and alt that the toolkit reports.
    void button(int number, int pressed, int modifiers);

    /// A key was pressed or released. Presses of a key that is held, which are its repeats, do nothing, and nor do keys
    /// with number 0. The bits of a modifier key's own event may include it or not.
    void key(const gwHostKey& key, int pressed, int modifiers);

    /// The wheel turned, away from the user for steps above 0: one press per whole step, with a delta of 1 or -1. Parts
    /// of a step add up to later ones. With a fine wheel each turn is one press with its own delta, parts of a step and
    /// many steps alike.
    void wheel(double steps);
    void fine_wheel(int on) { the_fine_wheel = on; }

    /// The window lost the keyboard: held keys are forgotten, because their release will not be reported. Buttons that
    /// are held are released, so that no drag goes on unseen.
    void focus_lost();

    /// Posts motion that was held back.
    void flush();

    /// Bits of gwModifier that are held.
    int modifiers() const { return the_modifiers | the_held_function_keys; }
    int x_device() const { return the_x; }
    int y_device() const { return the_y; }

private:
    void post_key(const gwHostKey& key, int pressed);

    gwDrawingArea& the_area;
    double the_x_scale = 1;
    double the_y_scale = 1;
    double the_wheel_remainder = 0;
    int the_fine_wheel = 0;
    int the_x = 0;
    int the_y = 0;
    int the_motion_held = 0;
    int the_modifiers = 0;          // control, shift, alt
    int the_held_function_keys = 0; // modifier bits
    unsigned the_held_buttons = 0;  // bit number - 1
    std::vector<gwHostKey> the_held_keys;
};
