#include "grStringConverter.h"

#include "giBox2.h"
#include "giPoint3.h"
#include "gsColour.h"

#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <string>
#include <vector>

namespace
{
// What a result holds before a conversion, and must still hold after a refusal.
constexpr int untouched = -77;

struct IntCase
{
    const char* text;
    int understood;
    int expected;
};

void expect_ints(int (*convert)(const utString&, int&), const std::vector<IntCase>& cases)
{
    for (const IntCase& c : cases)
    {
        int result = untouched;
        EXPECT_EQ(convert(c.text, result), c.understood) << '"' << c.text << '"';
        EXPECT_EQ(result, c.understood ? c.expected : untouched) << '"' << c.text << '"';
    }
}

template <class Enum>
void expect_words(int (*convert)(const utString&, Enum&), const std::vector<const char*>& words)
{
    for (std::size_t i = 0; i < words.size(); ++i)
    {
        Enum result = Enum();
        EXPECT_EQ(convert(words[i], result), 1) << words[i];
        EXPECT_EQ(static_cast<std::size_t>(result), i) << words[i];
    }
    Enum result = static_cast<Enum>(1);
    EXPECT_EQ(convert("none of them", result), 0);
    EXPECT_EQ(convert("", result), 0);
    EXPECT_EQ(result, 1);
}

class Actions
{
public:
    explicit Actions(const char* text) { understood = grStringConverter::to_actions(text, list); }
    ~Actions()
    {
        for (grAction* action : list)
            delete action;
    }

    // One action in the form "modifiers type key name|arguments".
    std::string operator[](int i) const
    {
        const grActionTrigger& trigger = list[i]->trigger();
        return std::to_string(trigger.modifiers()) + ' ' + std::to_string(trigger.key_type()) + ' ' +
               std::to_string(trigger.key_number()) + ' ' + list[i]->action_name().c_str() + '|' +
               trigger.args().c_str();
    }

    grActioncoDListPtr list;
    int understood;
};

const struct
{
    const char* name;
    const char* text;
    int understood;
    std::vector<std::string> expected;
} action_cases[] = {
    {"all groups", "<control shift> mouse_button 1 : rotate_view(x_axis)", 1, {"3 2 1 rotate_view|x_axis"}},
    {"no blanks needed beside punctuation",
     "<control,shift>mouse_button 1:rotate_view(x_axis)",
     1,
     {"3 2 1 rotate_view|x_axis"}},
    {"arguments are joined with commas", "mouse_button 2 : tool (x_axis world)", 1, {"0 2 2 tool|x_axis,world"}},
    {"numbers and signs are separate arguments", "mouse_button 2 : tool (0.5,-1)", 1, {"0 2 2 tool|0.5,-,1"}},
    {"empty groups", "<> mouse_button 2 : tool ()", 1, {"0 2 2 tool|"}},
    {"several actions",
     "qwerty_key 65 : Zoom other_key page_up : pan, other_key ctrl : reset",
     1,
     {"0 0 65 Zoom|", "0 3 5 pan|", "0 3 14 reset|"}},
    {"a key number ends where it cannot go on", "mouse_button 1.5 : zoom", 1, {"0 2 1 zoom|"}},
    {"empty text", "", 1, {}},
    {"control key under its modifier name", "other_key control : zoom", 0, {}},
    {"control modifier under its key name", "<ctrl> mouse_button 1 : zoom", 0, {}},
    {"missing colon keeps the actions before", "mouse_button 1 : zoom mouse_button 2 pan", 0, {"0 2 1 zoom|"}},
    {"letter instead of a key code", "qwerty_key a : zoom", 0, {}},
    {"negative key number", "qwerty_key -1 : zoom", 0, {}},
    {"unknown key type", "wheel 1 : zoom", 0, {}},
    {"modifiers without end", "<control", 0, {}},
    {"arguments without end", "mouse_button 1 : zoom (in", 0, {}},
    {"nothing behind the colon", "mouse_button 1 :", 0, {}},
    {"arguments without a name", "mouse_button 1 : (x)", 0, {}},
    {"text ends after the key type", "mouse_button", 0, {}},
    {"line ends are no separators", "mouse_button 1 : zoom\nmouse_button 2 : pan", 0, {"0 2 1 zoom|"}},
    {"nor names", "mouse_button 1 :\nmouse_button 2 : pan", 0, {}},
};
}

TEST(grStringConverter, reads_booleans_whole_and_without_regard_to_case)
{
    expect_ints(grStringConverter::to_bool, {{"0", 1, 0},
                                             {"false", 1, 0},
                                             {"No", 1, 0},
                                             {"oFF", 1, 0},
                                             {"1", 1, 1},
                                             {"TRUE", 1, 1},
                                             {"yes", 1, 1},
                                             {"On", 1, 1},
                                             {"2", 0, 0},
                                             {" on", 0, 0},
                                             {"on ", 0, 0},
                                             {"tru", 0, 0},
                                             {"", 0, 0}});
}

TEST(grStringConverter, reads_integers_up_to_where_they_end)
{
    expect_ints(grStringConverter::to_int, {{"12", 1, 12},
                                            {"  -7", 1, -7},
                                            {"+3", 1, 3},
                                            {"12abc", 1, 12},
                                            {"1.9", 1, 1},
                                            {"abc", 0, 0},
                                            {"+-3", 0, 0},
                                            {"99999999999", 0, 0},
                                            {"", 0, 0}});
}

TEST(grStringConverter, reads_numbers_with_a_point_whatever_the_locale)
{
    // Names of locales with a decimal comma differ between systems; where none is installed the check still holds.
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German"})
        if (std::setlocale(LC_NUMERIC, name))
            break;

    double number = 0;
    EXPECT_EQ(grStringConverter::to_double(" -2.5e1x", number), 1);
    EXPECT_EQ(number, -25.0);
    gsColour colour;
    EXPECT_EQ(grStringConverter::to_colour("0.25,0.5,0.75", colour), 1);
    EXPECT_EQ(colour, gsColour(0.25, 0.5, 0.75));
    std::setlocale(LC_NUMERIC, before.c_str());

    number = untouched;
    EXPECT_EQ(grStringConverter::to_double("x1", number), 0);
    EXPECT_EQ(number, untouched);
}

TEST(grStringConverter, reads_lists_of_numbers)
{
    doublecoSList numbers{untouched};
    EXPECT_EQ(grStringConverter::to_doubles("1, 2.5\t-3,4", numbers), 1);
    EXPECT_EQ(numbers, (doublecoSList{1, 2.5, -3, 4}));

    for (const char* refused : {"5 6 seven", "", " , "})
    {
        EXPECT_EQ(grStringConverter::to_doubles(refused, numbers), 0) << refused;
        EXPECT_EQ(numbers.count(), 4) << refused;
    }
}

TEST(grStringConverter, reads_points_with_commas_or_with_blanks)
{
    const giPoint3 expected(1, 2, -3);
    for (const char* text : {"1,2,-3", "1, 2, -3", "1 2 -3", " 1\t2  -3", "1,2,-3,4"})
    {
        giPoint3 point;
        EXPECT_EQ(grStringConverter::to_point(text, point), 1) << text;
        EXPECT_EQ(point, expected) << text;
    }
    for (const char* text : {"1 ,2 ,3", "1,2 3", "1 2,3", "1,2", "1 2", ""})
    {
        giPoint3 point(7, 8, 9);
        EXPECT_EQ(grStringConverter::to_point(text, point), 0) << text;
        EXPECT_EQ(point, giPoint3(7, 8, 9)) << text;
    }
}

TEST(grStringConverter, reads_colours_of_8_bits_clamped_and_others_as_they_are)
{
    const struct
    {
        const char* text;
        gsColour expected;
    } cases[] = {
        {"8bit 300 -5 128", gsColour(1, 0, 128 / 255.0)},
        {"8BIT  255\t0   51", gsColour(1, 0, 0.2)},
        {"0.5,0.25,1", gsColour(0.5, 0.25, 1)},
        {"0.5 0.25 1", gsColour(0.5, 0.25, 1)},
        {"2,-1,0", gsColour(2, -1, 0)},
    };
    for (const auto& c : cases)
    {
        gsColour colour;
        EXPECT_EQ(grStringConverter::to_colour(c.text, colour), 1) << c.text;
        EXPECT_EQ(colour, c.expected) << c.text;
    }
    for (const char* text : {"8bit 1,2,3", "8bit 1 2", "8bit1 2 3", "red", "nan 0 0", "0,0,inf", ""})
    {
        gsColour colour(0.1, 0.2, 0.3);
        EXPECT_EQ(grStringConverter::to_colour(text, colour), 0) << text;
        EXPECT_EQ(colour, gsColour(0.1, 0.2, 0.3)) << text;
    }
}

TEST(grStringConverter, reads_window_sizes_with_commas_only)
{
    giBox2 box;
    EXPECT_EQ(grStringConverter::to_window_size("10, -20,300,400", box), 1);
    EXPECT_EQ(box, giBox2(10, -20, 300, 400));
    EXPECT_EQ(grStringConverter::to_window_size("1 2 3 4", box), 0);
    EXPECT_EQ(grStringConverter::to_window_size("1,2,3", box), 0);
    EXPECT_EQ(box, giBox2(10, -20, 300, 400));
}

TEST(grStringConverter, reads_six_axes)
{
    std::array<int, 6> axes{};
    EXPECT_EQ(grStringConverter::to_axes(" z,Y x\trx, rz ry", axes), 1);
    const std::array<int, 6> expected{2, 1, 0, 3, 5, 4};
    EXPECT_EQ(axes, expected);
    for (const char* refused : {"", "x y z rx ry", "x y z rx ry rz x", "x y z rx ry rw"})
        EXPECT_EQ(grStringConverter::to_axes(refused, axes), 0) << refused;
    EXPECT_EQ(axes, expected);
}

TEST(grStringConverter, numbers_modifiers_as_bits_and_other_keys_in_order)
{
    const char* const modifiers[] = {"control", "shift", "alt", "f1", "f2",  "f3",  "f4", "f5",
                                     "f6",      "f7",    "f8",  "f9", "f10", "f11", "F12"};
    int bit = 1;
    for (const char* word : modifiers)
    {
        int result = untouched;
        EXPECT_EQ(grStringConverter::to_modifier(word, result), 1) << word;
        EXPECT_EQ(result, bit) << word;
        bit *= 2;
    }

    const char* const other_keys[] = {"insert",       "delete",     "home",     "end",         "page_up",
                                      "page_down",    "left_arrow", "up_arrow", "right_arrow", "down_arrow",
                                      "print_screen", "pause",      "shift",    "ctrl",        "ALT"};
    int number = 1;
    for (const char* word : other_keys)
    {
        int result = untouched;
        EXPECT_EQ(grStringConverter::to_other_key(word, result), 1) << word;
        EXPECT_EQ(result, number++) << word;
    }

    int result = untouched;
    EXPECT_EQ(grStringConverter::to_modifier("ctrl", result), 0);
    EXPECT_EQ(grStringConverter::to_modifier("f13", result), 0);
    EXPECT_EQ(grStringConverter::to_other_key("control", result), 0);
    EXPECT_EQ(result, untouched);
}

TEST(grStringConverter, reads_the_words_of_enumerations)
{
    expect_words(grStringConverter::to_key_type, {"qwerty_key", "function_key", "MOUSE_BUTTON", "other_key"});
    expect_words(grStringConverter::to_buffer_mode, {"single", "double", "twin"});
    expect_words(grStringConverter::to_colour_mode, {"true", "pseudo"});
    expect_words(grStringConverter::to_driver_type, {"gl", "X", "native", "GDI", "PEX", "X_on_UNIX"});
}

TEST(grStringConverter, reads_actions_and_keeps_those_before_a_failure)
{
    for (const auto& c : action_cases)
    {
        const Actions actions(c.text);
        EXPECT_EQ(actions.understood, c.understood) << c.name;
        ASSERT_EQ(actions.list.count(), static_cast<int>(c.expected.size())) << c.name;
        for (int i = 0; i < actions.list.count(); ++i)
            EXPECT_EQ(actions[i], c.expected[static_cast<std::size_t>(i)]) << c.name;
    }
}
