#include "grStringConverter.h"

#include "giBox2.h"
#include "giPoint3.h"
#include "gsColour.h"
#include "gwGraphicsCardRange.h"
#include "tsTable.h"

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

const std::pair<const char*, std::function<std::string(const std::string&)>> converters[] = {
    {"to_bool", with(C::to_bool, -77)},
    {"to_int", with(C::to_int, -77)},
    {"to_double", with(C::to_double, -77.0)},
    {"to_doubles", with(C::to_doubles, doublecoSList{-77})},
    {"to_point", with(C::to_point, giPoint3(7, 8, 9))},
    {"to_colour", with(C::to_colour, gsColour(0.1, 0.2, 0.3))},
    {"to_window_size", with(C::to_window_size, giBox2(1, 2, 3, 4))},
    {"to_key_type", with(C::to_key_type, gwMOUSE_WHEEL)},
    {"to_modifier", with(C::to_modifier, -77)},
    {"to_other_key", with(C::to_other_key, -77)},
    {"to_axes", with(C::to_axes, std::array<int, 6>{7, 7})},
    {"to_buffer_mode", with(C::to_buffer_mode, gwTWIN_BUFFER)},
    {"to_colour_mode", with(C::to_colour_mode, grPSEUDO_COLOUR)},
    {"to_driver_type", with(C::to_driver_type, gwPEX_DRIVER)},
    {"to_aa_format", with(C::to_aa_format, gwAAFormat{77})},
    {"to_antialiasing_formats", with(C::to_antialiasing_formats, gwAAFormatcoSList{gwAAFormat{77}})},
    {"to_graphics_card_range", with(C::to_graphics_card_range, gwGraphicsCardRange{7, 7, 7})},
    {"to_actions", actions},
};
}

TEST(grStringConverter, converts_texts_whatever_the_locale)
{
    // Names of locales with a decimal comma differ between systems; where none is installed the check still holds.
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German"})
        if (std::setlocale(LC_NUMERIC, name))
            break;
    for (const auto& [name, convert] : converters)
        for (const auto& row : ts_table(TS_TABLES "converters.table", name))
            EXPECT_EQ(convert(row[0]), row[1]) << name << " \"" << row[0] << '"';
    std::setlocale(LC_NUMERIC, before.c_str());
}
