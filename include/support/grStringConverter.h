#pragma once

#include "doublecoSList.h"
#include "grAction.h"
#include "grColourMode.h"
#include "grExport.h"
#include "gwAAFormatcoSList.h"
#include "gwTypes.h"
#include "utString.h"

#include <array>

class giBox2;
class giPoint3;
class gsColour;
struct gwGraphicsCardRange;

/// Conversion of resource texts to values.
///
/// Every converter answers 1 when it understood the text, and only then sets result; to_actions alone keeps what it
/// appended before it failed. Words are compared whole, without regard to case. Numbers have "." as decimal mark
/// whatever the locale, may have blanks before them, and end where they cannot go on: what follows is ignored. A number
/// that does not fit its type is refused.
class GR_EXPORT grStringConverter
{
public:
    grStringConverter() = delete;

    /// "0", "false", "no", "off" are 0; "1", "true", "yes", "on" are 1.
    static int to_bool(const utString& text, int& result);
    /// A decimal integer.
    static int to_int(const utString& text, int& result);
    static int to_double(const utString& text, double& result);
    /// One number or more, separated by blanks, commas or tabs.
    static int to_doubles(const utString& text, doublecoSList& result);
    /// Three numbers, with a comma directly behind the first and the second, or with blanks between them.
    static int to_point(const utString& text, giPoint3& result);
    /// "8bit " and three integers from 0 to 255 (clamped) with blanks between them; or red, green and blue from 0 to 1
    /// (finite, not clamped), written as for to_point.
    static int to_colour(const utString& text, gsColour& result);
    /// Four integers: low x, low y, high x and high y in device pixels, with a comma directly behind each but the last.
    static int to_window_size(const utString& text, giBox2& result);

    /// "qwerty_key", "function_key", "mouse_button", "other_key".
    static int to_key_type(const utString& text, gwKeyType& result);
    /// One gwModifier bit: "control", "shift", "alt", "f1" to "f12".
    static int to_modifier(const utString& text, int& result);
    /// A gwOtherKey: "insert", "delete", "home", "end", "page_up", "page_down", "left_arrow", "up_arrow",
    /// "right_arrow", "down_arrow", "print_screen", "pause", "shift", "ctrl", "alt".
    static int to_other_key(const utString& text, int& result);

    /// Six of the words "x", "y", "z" (0, 1, 2) and "rx", "ry", "rz" (3, 4, 5), separated by blanks, commas or tabs.
    static int to_axes(const utString& text, std::array<int, 6>& result);

    /// "single", "double", "twin".
    static int to_buffer_mode(const utString& text, gwDisplayBufferMode& result);
    /// "true", "pseudo".
    static int to_colour_mode(const utString& text, grColourMode& result);
    /// "GL", "X", "native", "GDI", "PEX", "X_ON_UNIX".
    static int to_driver_type(const utString& text, gwDriverType& result);

    /// Samples of a pixel, 0 or more, with or without an "x" behind: "4", "4x".
    static int to_aa_format(const utString& text, gwAAFormat& result);
    /// One such format or more, separated by blanks, commas or tabs.
    static int to_antialiasing_formats(const utString& text, gwAAFormatcoSList& result);
    /// Numbers of a maker and of one card or a range of cards, in hexadecimal digits: "10de:2204", "10de:2200-22ff".
    static int to_graphics_card_range(const utString& text, gwGraphicsCardRange& result);

    /// Appends the actions that a grActionReader finds in text; the caller owns them.
    /// On failure, the actions read before it stay in result.
    static int to_actions(const utString& text, grActioncoDListPtr& result);
};
