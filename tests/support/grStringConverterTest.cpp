#include "grStringConverter.h"

#include "giBox2.h"
#include "giPoint3.h"
#include "gsColour.h"
#include "gwGraphicsCardRange.h"

#include <gtest/gtest.h>

#include <clocale>
#include <functional>
#include <sstream>

namespace
{
template <class T>
void put(std::ostream& os, const T& value)
{
    if constexpr (std::is_enum_v<T>)
        os << static_cast<int>(value);
    else
        os << value;
}
void put(std::ostream& os, const gsColour& c)
{
    os << c.red() << ' ' << c.green() << ' ' << c.blue();
}
void put(std::ostream& os, const gwAAFormat& format)
{
    os << format.samples;
}
void put(std::ostream& os, const gwGraphicsCardRange& range)
{
    os << std::hex << range.vendor << ':' << range.first_device << '-' << range.last_device;
}
void put(std::ostream& os, const std::array<int, 6>& axes)
{
    for (const int axis : axes)
        os << axis;
}
template <class T>
void put(std::ostream& os, const coSList<T>& list)
{
    for (const T& item : list)
    {
        put(os, item);
        os << ';';
    }
}
// What a converter makes of a text; "-" when it refuses, and then result is as it was.
template <class T>
std::function<std::string(const std::string&)> with(int (*convert)(const utString&, T&), T before)
{
    return [=](const std::string& text)
    {
        std::ostringstream found, untouched;
        T result = before;
        const int understood = convert(text, result);
        put(found, result);
        put(untouched, before);
        if (understood)
            return found.str();
        return found.str() == untouched.str() ? std::string("-") : "touched: " + found.str();
    };
}

// One action after another as "modifiers type key name(arguments)", with "-" behind them after a failure.
std::string actions(const std::string& text)
{
    grActioncoDListPtr list;
    const int understood = grStringConverter::to_actions(text, list);
    std::ostringstream found;
    for (grAction* action : list)
    {
        const grActionTrigger& trigger = action->trigger();
        found << trigger.modifiers() << ' ' << int{trigger.key_type()} << ' ' << trigger.key_number() << ' '
              << action->action_name() << '(' << trigger.args() << ')';
        delete action;
    }
    return found.str() + (understood ? "" : "-");
}

using C = grStringConverter;

// Rows of "text=result", parted by "|".
const struct
{
    const char* name;
    std::function<std::string(const std::string&)> convert;
    std::string_view rows;
} converters[] = {
    {"to_bool", with(C::to_bool, -77), "0=0|false=0|No=0|oFF=0|1=1|TRUE=1|yes=1|On=1|2=-| on=-|on =-|tru=-|=-"},
    {"to_int", with(C::to_int, -77), "12=12|  -7=-7|+3=3|12abc=12|1.9=1|abc=-|+-3=-|99999999999=-|=-"},
    {"to_double", with(C::to_double, -77.0), " -2.5e1x=-25|0.5,1=0.5|x1=-"},
    {"to_doubles", with(C::to_doubles, doublecoSList{-77}), "1, 2.5\t-3,4=1;2.5;-3;4;|5 6 seven=-|=-| , =-"},
    {"to_point", with(C::to_point, giPoint3(7, 8, 9)),
     "1,2,-3=(1, 2, -3)|1, 2, -3=(1, 2, -3)|1 2 -3=(1, 2, -3)| 1\t2  -3=(1, 2, -3)|1,2,-3,4=(1, 2, -3)|1 ,2 ,3=-|"
     "1,2 3=-|1 2,3=-|1,2=-|=-"},
    {"to_colour", with(C::to_colour, gsColour(0.1, 0.2, 0.3)),
     "8bit 300 -5 51=1 0 0.2|8BIT  255\t0   51=1 0 0.2|0.5,0.25,1=0.5 0.25 1|0.5 0.25 1=0.5 0.25 1|2,-1,0=2 -1 0|"
     "8bit 1,2,3=-|8bit 1 2=-|8bit1 2 3=-|red=-|nan 0 0=-|0,0,inf=-|=-"},
    {"to_window_size", with(C::to_window_size, giBox2(1, 2, 3, 4)),
     "10, -20,300,400=[(10, -20), (300, 400)]|1 2 3 4=-|1,2,3=-"},
    {"to_key_type", with(C::to_key_type, gwMOUSE_WHEEL),
     "qwerty_key=0|function_key=1|MOUSE_BUTTON=2|other_key=3|wheel=-|=-"},
    {"to_modifier", with(C::to_modifier, -77),
     "control=1|shift=2|alt=4|f1=8|f2=16|f3=32|f4=64|f5=128|f6=256|f7=512|f8=1024|f9=2048|f10=4096|f11=8192|F12=16384|"
     "ctrl=-|f13=-"},
    {"to_other_key", with(C::to_other_key, -77),
     "insert=1|delete=2|home=3|end=4|page_up=5|page_down=6|left_arrow=7|up_arrow=8|right_arrow=9|down_arrow=10|"
     "print_screen=11|pause=12|shift=13|ctrl=14|ALT=15|control=-"},
    {"to_axes", with(C::to_axes, std::array<int, 6>{7, 7}),
     " z,Y x\trx, rz ry=210354|x y z rx ry=-|x y z rx ry rz x=-|x y z rx ry rw=-"},
    {"to_buffer_mode", with(C::to_buffer_mode, gwTWIN_BUFFER), "single=0|double=1|Twin=2|triple=-"},
    {"to_colour_mode", with(C::to_colour_mode, grPSEUDO_COLOUR), "true=0|pseudo=1|1=-"},
    {"to_driver_type", with(C::to_driver_type, gwPEX_DRIVER), "gl=0|X=1|native=2|GDI=3|PEX=4|X_on_UNIX=5|=-"},
    {"to_aa_format", with(C::to_aa_format, gwAAFormat{77}), "4=4|8X=8|0=0|-1=-|4xx=-|4 =-|x=-|=-"},
    {"to_antialiasing_formats", with(C::to_antialiasing_formats, gwAAFormatcoSList{gwAAFormat{77}}),
     "8x, 4\t0=8;4;0;|8 four=-|=-"},
    {"to_graphics_card_range", with(C::to_graphics_card_range, gwGraphicsCardRange{7, 7, 7}),
     "10DE:2204=10de:2204-2204|10de:2200-22ff=10de:2200-22ff|10de:2-1=-|10de=-|10de:=-|10de:2-=-|10de:2 "
     "=-|card:2=-|=-"},
    {"to_actions", actions,
     "=|<control shift> mouse_button 1 : rotate_view (x_axis)=3 2 1 rotate_view(x_axis)|"
     "<control,shift>mouse_button 1:rotate_view(x_axis)=3 2 1 rotate_view(x_axis)|"
     "mouse_button 2 : tool (x_axis world)=0 2 2 tool(x_axis,world)|mouse_button 2 : tool (0.5,-1)=0 2 2 tool(0.5,-,1)|"
     "<> mouse_button 2 : tool ()=0 2 2 tool()|mouse_button 1.5 : zoom=0 2 1 zoom()|"
     "qwerty_key 65 : Zoom other_key page_up : pan, other_key ctrl : reset=0 0 65 Zoom()0 3 5 pan()0 3 14 reset()|"
     "other_key control : zoom=-|<ctrl> mouse_button 1 : zoom=-|<control=-|mouse_button=-|qwerty_key a : zoom=-|"
     "mouse_button 1 : zoom mouse_button 2 pan=0 2 1 zoom()-|qwerty_key -1 : zoom=-|wheel 1 : zoom=-|"
     "mouse_button 1 : zoom (in=-|mouse_button 1 :=-|mouse_button 1 : (x)=-|"
     // The end of a line is neither a separator nor a name.
     "mouse_button 1 : zoom\nmouse_button 2 : pan=0 2 1 zoom()-|mouse_button 1 :\nmouse_button 2 : pan=-"},
};
}

TEST(grStringConverter, converts_texts_whatever_the_locale)
{
    // Names of locales with a decimal comma differ between systems; where none is installed the check still holds.
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German"})
        if (std::setlocale(LC_NUMERIC, name))
            break;
    for (const auto& converter : converters)
        for (std::string_view rest = converter.rows;;)
        {
            const std::string_view row = rest.substr(0, rest.find('|'));
            const std::size_t mark = row.find('=');
            const std::string text(row.substr(0, mark));
            EXPECT_EQ(converter.convert(text), row.substr(mark + 1)) << converter.name << " \"" << text << '"';
            if (row.size() == rest.size())
                break;
            rest.remove_prefix(row.size() + 1);
        }
    std::setlocale(LC_NUMERIC, before.c_str());
}
