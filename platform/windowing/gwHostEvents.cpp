#include "gwHostEvents.h"

#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <cmath>

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
}
