#include "gwGLFWEvents.h"

#include "gwGLFWKeys.h"

#include "gwDrawingArea.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"

#include <GLFW/glfw3.h>

#include <cmath>

void gwGLFWEvents::scale(double x_scale, double y_scale)
{
    if (x_scale > 0 && y_scale > 0)
    {
        the_x_scale = x_scale;
        the_y_scale = y_scale;
    }
}

void gwGLFWEvents::cursor(double x, double y)
{
    const int x_device = static_cast<int>(std::floor(x * the_x_scale));
    const int y_device = the_area.height() - 1 - static_cast<int>(std::floor(y * the_y_scale));
    if (x_device == the_x && y_device == the_y)
        return;
    the_x = x_device;
    the_y = y_device;
    the_motion_held = 1;
}

void gwGLFWEvents::flush()
{
    if (!the_motion_held)
        return;
    the_motion_held = 0;
    the_area.input().post(gwMouseEvent(&the_area, the_x, the_y, modifiers()));
}

void gwGLFWEvents::post_key(const gwGLFWKey& key, int action, int modifiers)
{
    the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, modifiers, action == GLFW_PRESS ? gwPRESSED : gwRELEASED,
                                     key.type, key.number));
}

void gwGLFWEvents::button(int glfw_button, int action, int glfw_modifiers)
{
    flush();
    the_modifiers = gw_glfw_modifiers(glfw_modifiers);
    post_key(gw_glfw_button(glfw_button), action, modifiers());
}

void gwGLFWEvents::key(int glfw_key, const char* layout_name, int action, int glfw_modifiers)
{
    const gwGLFWKey key = gw_glfw_key(glfw_key, layout_name);
    if (!key.number || action == GLFW_REPEAT)
        return;
    flush();

    // Platforms differ in whether the bits of a modifier key's own event include it, so it is set by hand. The event
    // carries what is held besides the key, so that a trigger can name the others exactly.
    const int bit = gw_glfw_modifier_bit(key);
    int& held = key.type == gwFUNCTION_KEY ? the_held_function_keys : the_modifiers;
    the_modifiers = gw_glfw_modifiers(glfw_modifiers);
    held &= ~bit;
    post_key(key, action, modifiers());
    if (action == GLFW_PRESS)
        held |= bit;
}

void gwGLFWEvents::wheel(double y_steps)
{
    if (the_fine_wheel)
    {
        flush();
        the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, modifiers(), gwPRESSED, gwMOUSE_WHEEL, 1, y_steps));
        return;
    }
    // A change of direction starts anew: the user no longer wants the rest of the step that was not finished.
    if (the_wheel_remainder * y_steps < 0)
        the_wheel_remainder = 0;
    the_wheel_remainder += y_steps;
    const double direction = the_wheel_remainder < 0 ? -1 : 1;
    const int steps = static_cast<int>(std::fabs(the_wheel_remainder) + 1e-9);
    the_wheel_remainder -= direction * steps;
    if (!steps)
        return;
    flush();
    for (int i = 0; i < steps; ++i)
        the_area.input().post(gwKeyEvent(&the_area, the_x, the_y, modifiers(), gwPRESSED, gwMOUSE_WHEEL, 1, direction));
}

void gwGLFWEvents::focus_lost()
{
    the_modifiers = 0;
    the_held_function_keys = 0;
}
