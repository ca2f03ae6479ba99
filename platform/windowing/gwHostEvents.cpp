#include "gwHostEvents.h"

#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
// The bit of gwModifier that holding a key sets, 0 for most keys.
int modifier_bit(const gwHostKey& key)
{
    if (key.type == gwFUNCTION_KEY)
        return key.number <= 12 ? gwMODIFIER_F1 << (key.number - 1) : 0;
    if (key.type != gwOTHER_KEY)
        return 0;
    switch (key.number)
    {
    case gwKEY_CTRL: return gwMODIFIER_CONTROL;
    case gwKEY_SHIFT: return gwMODIFIER_SHIFT;
    case gwKEY_ALT: return gwMODIFIER_ALT;
    }
    return 0;
}
}

gwHostKey gw_character_key(unsigned character)
{
    switch (character)
    {
    case 8:
    case 9:
    case 13:
    case 27: return {gwQWERTY_KEY, static_cast<int>(character)};
    }
    if (character < ' ' || character > '~')
        return {};
    return {gwQWERTY_KEY, static_cast<int>(character >= 'a' && character <= 'z' ? character - 'a' + 'A' : character)};
}

gwHostKey gw_keysym_key(unsigned keysym)
{
    // The numbers of X11/keysymdef.h, which are fixed.
    constexpr unsigned first_function_key = 0xffbe, last_function_key = 0xffe0, left_tabulator = 0xfe20;
    static const struct
    {
        unsigned keysym, other_keysym; // of the number pad, of the key on the right
        gwOtherKey key;
    } others[] = {
        {0xff63, 0xff9e, gwKEY_INSERT},     {0xffff, 0xff9f, gwKEY_DELETE},       {0xff50, 0xff95, gwKEY_HOME},
        {0xff57, 0xff9c, gwKEY_END},        {0xff55, 0xff9a, gwKEY_PAGE_UP},      {0xff56, 0xff9b, gwKEY_PAGE_DOWN},
        {0xff51, 0xff96, gwKEY_LEFT_ARROW}, {0xff52, 0xff97, gwKEY_UP_ARROW},     {0xff53, 0xff98, gwKEY_RIGHT_ARROW},
        {0xff54, 0xff99, gwKEY_DOWN_ARROW}, {0xff61, 0xff61, gwKEY_PRINT_SCREEN}, {0xff13, 0xff6b, gwKEY_PAUSE},
        {0xffe1, 0xffe2, gwKEY_SHIFT},      {0xffe3, 0xffe4, gwKEY_CTRL},         {0xffe9, 0xffea, gwKEY_ALT}};
    for (const auto& other : others)
        if (keysym == other.keysym || keysym == other.other_keysym)
            return {gwOTHER_KEY, other.key};
    if (keysym >= first_function_key && keysym <= last_function_key)
        return {gwFUNCTION_KEY, static_cast<int>(keysym - first_function_key) + 1};
    if (keysym == left_tabulator)
        return gw_character_key('\t');
    // Control characters and the number pad have their ASCII codes in the low seven bits.
    const bool holds_ascii =
        (keysym >= 0xff00 && keysym <= 0xff1b) || (keysym >= 0xff80 && keysym < first_function_key);
    return gw_character_key(holds_ascii ? keysym & 0x7f : keysym);
}

int gw_x_modifiers(unsigned state)
{
    constexpr unsigned shift = 1, control = 4, alt = 8;
    return (state & control ? gwMODIFIER_CONTROL : 0) | (state & shift ? gwMODIFIER_SHIFT : 0) |
           (state & alt ? gwMODIFIER_ALT : 0);
}

gwHostKey gw_hid_key(unsigned usage)
{
    // From "HID Usage Tables", the page of keyboards.
    constexpr unsigned first_of_12 = 0x3a, first_of_others = 0x46, first_of_number_pad = 0x54,
                       equals_of_number_pad = 0x67, f13 = 0x68, f24 = 0x73, left_control = 0xe0, right_alt = 0xe6;
    // From print screen to the arrows; scroll lock is not reported.
    static const int others[] = {
        gwKEY_PRINT_SCREEN, 0,         gwKEY_PAUSE,     gwKEY_INSERT,      gwKEY_HOME,       gwKEY_PAGE_UP,
        gwKEY_DELETE,       gwKEY_END, gwKEY_PAGE_DOWN, gwKEY_RIGHT_ARROW, gwKEY_LEFT_ARROW, gwKEY_DOWN_ARROW,
        gwKEY_UP_ARROW};
    static const char number_pad[] = "/*-+\r1234567890.";
    static const int modifiers[] = {gwKEY_CTRL, gwKEY_SHIFT, gwKEY_ALT, 0}; // and the key of the window system
    if (usage >= first_of_12 && usage < first_of_others)
        return {gwFUNCTION_KEY, static_cast<int>(usage - first_of_12) + 1};
    if (usage >= f13 && usage <= f24)
        return {gwFUNCTION_KEY, static_cast<int>(usage - f13) + 13};
    if (usage >= first_of_others && usage < first_of_others + std::size(others))
        return {gwOTHER_KEY, others[usage - first_of_others]};
    if (usage >= first_of_number_pad && usage < first_of_number_pad + std::size(number_pad) - 1)
        return gw_character_key(static_cast<unsigned char>(number_pad[usage - first_of_number_pad]));
    if (usage == equals_of_number_pad)
        return gw_character_key('=');
    if (usage >= left_control && usage <= right_alt)
        return {gwOTHER_KEY, modifiers[(usage - left_control) % 4]};
    return {};
}

void gwHostEvents::scale(double x_scale, double y_scale)
{
    if (x_scale > 0 && y_scale > 0)
    {
        the_x_scale = x_scale;
        the_y_scale = y_scale;
    }
}

void gwHostEvents::pointer(double x, double y)
{
    const int x_device = static_cast<int>(std::floor(x * the_x_scale));
    const int y_device = the_area.height() - 1 - static_cast<int>(std::floor(y * the_y_scale));
    if (x_device == the_x && y_device == the_y)
        return;
    the_x = x_device;
    the_y = y_device;
    the_motion_held = 1;
}

void gwHostEvents::flush()
{
    if (!the_motion_held)
        return;
    the_motion_held = 0;
    the_area.input().post(gwMouseEvent(&the_area, the_x, the_y, modifiers()));
}

void gwHostEvents::post_key(const gwHostKey& key, int pressed)
{
    the_area.input().post(
        gwKeyEvent(&the_area, the_x, the_y, modifiers(), pressed ? gwPRESSED : gwRELEASED, key.type, key.number));
}

void gwHostEvents::button(int number, int pressed, int modifiers)
{
    flush();
    the_modifiers = modifiers;
    if (number >= 1 && number <= 32)
    {
        const unsigned bit = 1u << (number - 1);
        if (!pressed && !(the_held_buttons & bit))
            return; // released already with the focus
        the_held_buttons = pressed ? the_held_buttons | bit : the_held_buttons & ~bit;
    }
    post_key({gwMOUSE_BUTTON, number}, pressed);
}

void gwHostEvents::key(const gwHostKey& key, int pressed, int modifiers)
{
    if (!key.number)
        return;
    const auto held_key = std::find(the_held_keys.begin(), the_held_keys.end(), key);
    if (held_key == the_held_keys.end() && pressed)
        the_held_keys.push_back(key);
    else if (pressed)
        return; // a repeat
    else if (held_key != the_held_keys.end())
        the_held_keys.erase(held_key);
    flush();
    // Toolkits differ in whether the bits of a modifier key's own event include it, so it is set by hand. The event
    // carries what is held besides the key, so that a trigger can name the others exactly.
    const int bit = modifier_bit(key);
    int& held = key.type == gwFUNCTION_KEY ? the_held_function_keys : the_modifiers;
    the_modifiers = modifiers;
    held &= ~bit;
    post_key(key, pressed);
    if (pressed)
        held |= bit;
}

void gwHostEvents::wheel(double steps)
{
    if (the_fine_wheel)
    {
        flush();
        the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, modifiers(), gwPRESSED, gwMOUSE_WHEEL, 1, steps));
        return;
    }
    // A change of direction starts anew: the user no longer wants the rest of the step that was not finished.
    if (the_wheel_remainder * steps < 0)
        the_wheel_remainder = 0;
    the_wheel_remainder += steps;
    const double direction = the_wheel_remainder < 0 ? -1 : 1;
    const int whole_steps = static_cast<int>(std::fabs(the_wheel_remainder) + 1e-9);
    the_wheel_remainder -= direction * whole_steps;
    if (!whole_steps)
        return;
    flush();
    for (int i = 0; i < whole_steps; ++i)
        the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, modifiers(), gwPRESSED, gwMOUSE_WHEEL, 1, direction));
}

void gwHostEvents::focus_lost()
{
    for (int number = 1; the_held_buttons; ++number)
        if (the_held_buttons & 1u << (number - 1))
            button(number, 0, the_modifiers);
    the_modifiers = 0;
    the_held_function_keys = 0;
    the_held_keys.clear();
}
