#include "grStringConverter.h"

#include "apNumber.h"
#include "giBox2.h"
#include "giPoint3.h"
#include "grActionReader.h"
#include "gsColour.h"
#include "gwGraphicsCardRange.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <memory>
#include <string_view>

namespace
{
template <class Value>
struct Word
{
    const char* text;
    Value value;
};

const Word<int> bool_words[] = {{"0", 0}, {"false", 0}, {"no", 0},  {"off", 0},
                                {"1", 1}, {"true", 1},  {"yes", 1}, {"on", 1}};

const Word<gwKeyType> key_type_words[] = {
    {"qwerty_key", gwQWERTY_KEY}, {"function_key", gwFUNCTION_KEY}, {"mouse_button", gwMOUSE_BUTTON},
    {"other_key", gwOTHER_KEY},   {"mouse_click", gwMOUSE_CLICK},   {"mouse_double_click", gwMOUSE_DOUBLE_CLICK}};

const Word<int> modifier_words[] = {
    {"control", gwMODIFIER_CONTROL}, {"shift", gwMODIFIER_SHIFT}, {"alt", gwMODIFIER_ALT}, {"f1", gwMODIFIER_F1},
    {"f2", gwMODIFIER_F2},           {"f3", gwMODIFIER_F3},       {"f4", gwMODIFIER_F4},   {"f5", gwMODIFIER_F5},
    {"f6", gwMODIFIER_F6},           {"f7", gwMODIFIER_F7},       {"f8", gwMODIFIER_F8},   {"f9", gwMODIFIER_F9},
    {"f10", gwMODIFIER_F10},         {"f11", gwMODIFIER_F11},     {"f12", gwMODIFIER_F12}};

// The control key is "ctrl" here and "control" as a modifier: deliberate, resource files in use have both.
const Word<int> other_key_words[] = {{"insert", gwKEY_INSERT},
                                     {"delete", gwKEY_DELETE},
                                     {"home", gwKEY_HOME},
                                     {"end", gwKEY_END},
                                     {"page_up", gwKEY_PAGE_UP},
                                     {"page_down", gwKEY_PAGE_DOWN},
                                     {"left_arrow", gwKEY_LEFT_ARROW},
                                     {"up_arrow", gwKEY_UP_ARROW},
                                     {"right_arrow", gwKEY_RIGHT_ARROW},
                                     {"down_arrow", gwKEY_DOWN_ARROW},
                                     {"print_screen", gwKEY_PRINT_SCREEN},
                                     {"pause", gwKEY_PAUSE},
                                     {"shift", gwKEY_SHIFT},
                                     {"ctrl", gwKEY_CTRL},
                                     {"alt", gwKEY_ALT}};

const Word<int> axis_words[] = {{"x", 0}, {"y", 1}, {"z", 2}, {"rx", 3}, {"ry", 4}, {"rz", 5}};

const Word<gwDisplayBufferMode> buffer_mode_words[] = {
    {"single", gwSINGLE_BUFFER}, {"double", gwDOUBLE_BUFFER}, {"twin", gwTWIN_BUFFER}};

const Word<grColourMode> colour_mode_words[] = {{"true", grTRUE_COLOUR}, {"pseudo", grPSEUDO_COLOUR}};

const Word<gwDriverType> driver_type_words[] = {{"GL", gwGL_DRIVER},         {"X", gwX_DRIVER},
                                                {"native", gwNATIVE_DRIVER}, {"GDI", gwGDI_DRIVER},
                                                {"PEX", gwPEX_DRIVER},       {"X_ON_UNIX", gwX_ON_UNIX_DRIVER}};

template <class Value, std::size_t n_words>
bool look_up(const Word<Value> (&words)[n_words], const utString& text, Value& result)
{
    for (const Word<Value>& word : words)
        if (text.equal_case_blind(word.text))
        {
            result = word.value;
            return true;
        }
    return false;
}

// Scans numbers from the start of a text. Where the separator is a blank, any blanks may stand between two numbers, or
// none where the next one's sign or point ends the one before; any other separator must directly follow a number.
template <class Number, std::size_t n_numbers>
bool scan(std::string_view text, char separator, Number (&numbers)[n_numbers])
{
    const char* position = text.data();
    const char* const end = position + text.size();
    for (std::size_t i = 0; i < n_numbers; ++i)
    {
        if (i > 0 && separator != ' ')
        {
            if (position == end || *position != separator)
                return false;
            ++position;
        }
        position = ap_scan_number(position, end, numbers[i]);
        if (!position)
            return false;
    }
    return true;
}

template <class Number>
bool to_number(const utString& text, Number& result)
{
    return ap_scan_number(text.view().data(), text.view().data() + text.view().size(), result) != nullptr;
}

// The words of a list, which blanks, commas and tabs separate.
class ListReader
{
public:
    explicit ListReader(std::string_view text) : the_rest(text) {}

    bool next()
    {
        constexpr std::string_view separators = " ,\t";
        the_rest.remove_prefix(std::min(the_rest.find_first_not_of(separators), the_rest.size()));
        the_word = the_rest.substr(0, the_rest.find_first_of(separators));
        the_rest.remove_prefix(the_word.size());
        return !the_word.empty();
    }
    std::string_view word() const { return the_word; }

private:
    std::string_view the_rest;
    std::string_view the_word;
};

// One value or more.
template <class Value>
bool to_list(const utString& text, int (*convert)(const utString&, Value&), coSList<Value>& result)
{
    coSList<Value> values;
    for (ListReader list(text.view()); list.next();)
    {
        Value value{};
        if (!convert(utString(list.word()), value))
            return false;
        values.append(value);
    }
    if (values.empty())
        return false;
    result = values;
    return true;
}

// A number of a card in hexadecimal digits behind a separator, unless that is zero; position moves on.
bool read_card_number(const char*& position, const char* end, char separator, unsigned& number)
{
    if (separator && (position == end || *position++ != separator))
        return false;
    const std::from_chars_result read = std::from_chars(position, end, number, 16);
    position = read.ptr;
    return read.ec == std::errc();
}

bool three_numbers(const utString& text, double (&numbers)[3])
{
    return scan(text.view(), ',', numbers) || scan(text.view(), ' ', numbers);
}

constexpr std::string_view eight_bit_prefix = "8bit ";

bool is_eight_bit_colour(const utString& text)
{
    return text.equal_case_blind(utString(eight_bit_prefix), static_cast<int>(eight_bit_prefix.size()));
}

double eight_bit_channel(int value)
{
    return std::clamp(value, 0, 255) / 255.0;
}
}

int grStringConverter::to_bool(const utString& text, int& result)
{
    return look_up(bool_words, text, result);
}

int grStringConverter::to_int(const utString& text, int& result)
{
    return to_number(text, result);
}

int grStringConverter::to_double(const utString& text, double& result)
{
    return to_number(text, result);
}

int grStringConverter::to_doubles(const utString& text, doublecoSList& result)
{
    return to_list(text, to_double, result);
}

int grStringConverter::to_point(const utString& text, giPoint3& result)
{
    double numbers[3];
    if (!three_numbers(text, numbers))
        return 0;
    result = giPoint3(numbers[0], numbers[1], numbers[2]);
    return 1;
}

int grStringConverter::to_colour(const utString& text, gsColour& result)
{
    if (is_eight_bit_colour(text))
    {
        int channels[3];
        if (!scan(text.view().substr(eight_bit_prefix.size()), ' ', channels))
            return 0;
        result =
            gsColour(eight_bit_channel(channels[0]), eight_bit_channel(channels[1]), eight_bit_channel(channels[2]));
        return 1;
    }

    double channels[3];
    if (!three_numbers(text, channels) ||
        !std::all_of(std::begin(channels), std::end(channels), [](double channel) { return std::isfinite(channel); }))
        return 0;
    result = gsColour(channels[0], channels[1], channels[2]);
    return 1;
}

int grStringConverter::to_window_size(const utString& text, giBox2& result)
{
    int numbers[4];
    if (!scan(text.view(), ',', numbers))
        return 0;
    result = giBox2(numbers[0], numbers[1], numbers[2], numbers[3]);
    return 1;
}

int grStringConverter::to_key_type(const utString& text, gwKeyType& result)
{
    return look_up(key_type_words, text, result);
}

int grStringConverter::to_modifier(const utString& text, int& result)
{
    return look_up(modifier_words, text, result);
}

int grStringConverter::to_other_key(const utString& text, int& result)
{
    return look_up(other_key_words, text, result);
}

int grStringConverter::to_axes(const utString& text, std::array<int, 6>& result)
{
    std::array<int, 6> axes{};
    std::size_t count = 0;
    for (ListReader list(text.view()); list.next(); ++count)
        if (count == axes.size() || !look_up(axis_words, utString(list.word()), axes[count]))
            return 0;
    if (count != axes.size())
        return 0;
    result = axes;
    return 1;
}

int grStringConverter::to_buffer_mode(const utString& text, gwDisplayBufferMode& result)
{
    return look_up(buffer_mode_words, text, result);
}

int grStringConverter::to_colour_mode(const utString& text, grColourMode& result)
{
    return look_up(colour_mode_words, text, result);
}

int grStringConverter::to_driver_type(const utString& text, gwDriverType& result)
{
    return look_up(driver_type_words, text, result);
}

int grStringConverter::to_aa_format(const utString& text, gwAAFormat& result)
{
    const std::string_view digits = text.view().substr(0, text.view().find_first_of("xX"));
    const char* const end = digits.data() + digits.size();
    int samples = 0;
    if (ap_scan_number(digits.data(), end, samples) != end || samples < 0 || text.view().size() > digits.size() + 1)
        return 0;
    result.samples = samples;
    return 1;
}

int grStringConverter::to_antialiasing_formats(const utString& text, gwAAFormatcoSList& result)
{
    return to_list(text, to_aa_format, result);
}

int grStringConverter::to_graphics_card_range(const utString& text, gwGraphicsCardRange& result)
{
    gwGraphicsCardRange range;
    const char* position = text.c_str();
    const char* const end = position + text.length();
    if (!read_card_number(position, end, '\0', range.vendor) ||
        !read_card_number(position, end, ':', range.first_device))
        return 0;
    range.last_device = range.first_device;
    if (position != end && !read_card_number(position, end, '-', range.last_device))
        return 0;
    if (position != end || range.last_device < range.first_device)
        return 0;
    result = range;
    return 1;
}

int grStringConverter::to_actions(const utString& text, grActioncoDListPtr& result)
{
    grActionReader reader(text);
    while (std::unique_ptr<grAction> action = reader.next())
        result.add_last(action.release());
    return !reader.failed();
}
