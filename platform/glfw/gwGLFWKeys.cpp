#include "gwGLFWKeys.h"

#include <GLFW/glfw3.h>

namespace
{
constexpr char escape = 27;

int other_key_number(int glfw_key)
{
    switch (glfw_key)
    {
    case GLFW_KEY_INSERT: return gwKEY_INSERT;
    case GLFW_KEY_DELETE: return gwKEY_DELETE;
    case GLFW_KEY_HOME: return gwKEY_HOME;
    case GLFW_KEY_END: return gwKEY_END;
    case GLFW_KEY_PAGE_UP: return gwKEY_PAGE_UP;
    case GLFW_KEY_PAGE_DOWN: return gwKEY_PAGE_DOWN;
    case GLFW_KEY_LEFT: return gwKEY_LEFT_ARROW;
    case GLFW_KEY_UP: return gwKEY_UP_ARROW;
    case GLFW_KEY_RIGHT: return gwKEY_RIGHT_ARROW;
    case GLFW_KEY_DOWN: return gwKEY_DOWN_ARROW;
    case GLFW_KEY_PRINT_SCREEN: return gwKEY_PRINT_SCREEN;
    case GLFW_KEY_PAUSE: return gwKEY_PAUSE;
    case GLFW_KEY_LEFT_SHIFT:
    case GLFW_KEY_RIGHT_SHIFT: return gwKEY_SHIFT;
    case GLFW_KEY_LEFT_CONTROL:
    case GLFW_KEY_RIGHT_CONTROL: return gwKEY_CTRL;
    case GLFW_KEY_LEFT_ALT:
    case GLFW_KEY_RIGHT_ALT: return gwKEY_ALT;
    }
    return 0;
}

int keypad_character(int glfw_key)
{
    if (glfw_key >= GLFW_KEY_KP_0 && glfw_key <= GLFW_KEY_KP_9)
        return '0' + (glfw_key - GLFW_KEY_KP_0);
    switch (glfw_key)
    {
    case GLFW_KEY_KP_DECIMAL: return '.';
    case GLFW_KEY_KP_DIVIDE: return '/';
    case GLFW_KEY_KP_MULTIPLY: return '*';
    case GLFW_KEY_KP_SUBTRACT: return '-';
    case GLFW_KEY_KP_ADD: return '+';
    case GLFW_KEY_KP_ENTER: return '\r';
    case GLFW_KEY_KP_EQUAL: return '=';
    }
    return 0;
}

// GLFW's constants for printable keys are the upper-case ASCII codes of a US keyboard.
gwHostKey qwerty_key(int glfw_key, const char* layout_name)
{
    if (const int character = keypad_character(glfw_key))
        return gw_character_key(static_cast<unsigned>(character));
    switch (glfw_key)
    {
    case GLFW_KEY_ESCAPE: return gw_character_key(escape);
    case GLFW_KEY_ENTER: return gw_character_key('\r');
    case GLFW_KEY_TAB: return gw_character_key('\t');
    case GLFW_KEY_BACKSPACE: return gw_character_key('\b');
    }
    if (layout_name && layout_name[0] > ' ' && layout_name[0] <= '~' && !layout_name[1])
        return gw_character_key(static_cast<unsigned char>(layout_name[0]));
    return gw_character_key(glfw_key >= 0 ? static_cast<unsigned>(glfw_key) : 0);
}
}

gwHostKey gw_glfw_key(int glfw_key, const char* layout_name)
{
    if (glfw_key >= GLFW_KEY_F1 && glfw_key <= GLFW_KEY_F25)
        return {gwFUNCTION_KEY, glfw_key - GLFW_KEY_F1 + 1};
    if (const int number = other_key_number(glfw_key))
        return {gwOTHER_KEY, number};
    return qwerty_key(glfw_key, layout_name);
}

int gw_glfw_button(int glfw_button)
{
    switch (glfw_button)
    {
    case GLFW_MOUSE_BUTTON_LEFT: return 1;
    case GLFW_MOUSE_BUTTON_MIDDLE: return 2;
    case GLFW_MOUSE_BUTTON_RIGHT: return 3;
    }
    return glfw_button + 1;
}

int gw_glfw_modifiers(int glfw_modifiers)
{
    return (glfw_modifiers & GLFW_MOD_CONTROL ? gwMODIFIER_CONTROL : 0) |
           (glfw_modifiers & GLFW_MOD_SHIFT ? gwMODIFIER_SHIFT : 0) |
           (glfw_modifiers & GLFW_MOD_ALT ? gwMODIFIER_ALT : 0);
}
