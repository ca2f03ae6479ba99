#include "gwGLFWKeys.h"

#include <GLFW/glfw3.h>
#include <gtest/gtest.h>

namespace
{
const struct
{
    const char* name;
    int glfw_key;
    const char* layout_name;
    gwKeyType type;
    int number;
} key_cases[] = {
    {"letter without a layout name", GLFW_KEY_R, nullptr, gwQWERTY_KEY, 'R'},
    {"letter of the layout, upper case", GLFW_KEY_Y, "z", gwQWERTY_KEY, 'Z'},
    {"a name that is not ASCII is not followed", GLFW_KEY_SEMICOLON, "\xc3\xb6", gwQWERTY_KEY, ';'},
    {"space", GLFW_KEY_SPACE, nullptr, gwQWERTY_KEY, ' '},
    {"digit", GLFW_KEY_7, "7", gwQWERTY_KEY, '7'},
    {"escape", GLFW_KEY_ESCAPE, nullptr, gwQWERTY_KEY, 27},
    {"return", GLFW_KEY_ENTER, nullptr, gwQWERTY_KEY, 13},
    {"keypad digit", GLFW_KEY_KP_4, "4", gwQWERTY_KEY, '4'},
    {"keypad plus", GLFW_KEY_KP_ADD, nullptr, gwQWERTY_KEY, '+'},
    {"first function key", GLFW_KEY_F1, nullptr, gwFUNCTION_KEY, 1},
    {"twelfth function key", GLFW_KEY_F12, nullptr, gwFUNCTION_KEY, 12},
    {"insert", GLFW_KEY_INSERT, nullptr, gwOTHER_KEY, 1},
    {"delete", GLFW_KEY_DELETE, nullptr, gwOTHER_KEY, 2},
    {"home", GLFW_KEY_HOME, nullptr, gwOTHER_KEY, 3},
    {"end", GLFW_KEY_END, nullptr, gwOTHER_KEY, 4},
    {"page up", GLFW_KEY_PAGE_UP, nullptr, gwOTHER_KEY, 5},
    {"page down", GLFW_KEY_PAGE_DOWN, nullptr, gwOTHER_KEY, 6},
    {"left arrow", GLFW_KEY_LEFT, nullptr, gwOTHER_KEY, 7},
    {"up arrow", GLFW_KEY_UP, nullptr, gwOTHER_KEY, 8},
    {"right arrow", GLFW_KEY_RIGHT, nullptr, gwOTHER_KEY, 9},
    {"down arrow", GLFW_KEY_DOWN, nullptr, gwOTHER_KEY, 10},
    {"print screen", GLFW_KEY_PRINT_SCREEN, nullptr, gwOTHER_KEY, 11},
    {"pause", GLFW_KEY_PAUSE, nullptr, gwOTHER_KEY, 12},
    {"right shift is shift", GLFW_KEY_RIGHT_SHIFT, nullptr, gwOTHER_KEY, 13},
    {"left control is ctrl", GLFW_KEY_LEFT_CONTROL, nullptr, gwOTHER_KEY, 14},
    {"alt", GLFW_KEY_LEFT_ALT, nullptr, gwOTHER_KEY, 15},
    {"caps lock is not reported", GLFW_KEY_CAPS_LOCK, nullptr, gwQWERTY_KEY, 0},
    {"an unknown key is not reported", GLFW_KEY_UNKNOWN, nullptr, gwQWERTY_KEY, 0},
};

const struct
{
    int glfw_button;
    int number;
} button_cases[] = {
    {GLFW_MOUSE_BUTTON_LEFT, 1}, {GLFW_MOUSE_BUTTON_MIDDLE, 2}, {GLFW_MOUSE_BUTTON_RIGHT, 3},
    {GLFW_MOUSE_BUTTON_4, 4},    {GLFW_MOUSE_BUTTON_8, 8},
};
}

TEST(gwGLFWKeys, names_every_key_by_type_and_number)
{
    for (const auto& c : key_cases)
    {
        const gwHostKey key = gw_glfw_key(c.glfw_key, c.layout_name);
        EXPECT_EQ(key.type, c.type) << c.name;
        EXPECT_EQ(key.number, c.number) << c.name;
    }
}

TEST(gwGLFWKeys, numbers_buttons_from_left_to_right)
{
    for (const auto& c : button_cases)
        EXPECT_EQ(gw_glfw_button(c.glfw_button), c.number);
}

TEST(gwGLFWKeys, translates_modifier_bits)
{
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_CONTROL), 1);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_SHIFT), 2);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_ALT), 4);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_CONTROL | GLFW_MOD_ALT | GLFW_MOD_SUPER | GLFW_MOD_CAPS_LOCK), 5);
}
