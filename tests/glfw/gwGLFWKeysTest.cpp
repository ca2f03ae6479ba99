#include "gwGLFWKeys.h"

#include <GLFW/glfw3.h>
#include <gtest/gtest.h>

TEST(gwGLFWKeys, names_every_key_by_type_and_number)
{
    const auto expect = [](int key, const char* layout_name, gwKeyType type, int number)
    {
        EXPECT_EQ(gw_glfw_key(key, layout_name).type, type) << key;
        EXPECT_EQ(gw_glfw_key(key, layout_name).number, number) << key;
    };
    const struct
    {
        int key;
        const char* layout_name;
        int character;
    } characters[] = {{GLFW_KEY_R, nullptr, 'R'},
                      {GLFW_KEY_Y, "z", 'Z'},
                      {GLFW_KEY_SEMICOLON, "\xc3\xb6", ';'}, // a name that is not ASCII is not followed
                      {GLFW_KEY_SPACE, nullptr, ' '},
                      {GLFW_KEY_7, "7", '7'},
                      {GLFW_KEY_ESCAPE, nullptr, 27},
                      {GLFW_KEY_ENTER, nullptr, 13},
                      {GLFW_KEY_KP_4, "4", '4'},
                      {GLFW_KEY_KP_ADD, nullptr, '+'},
                      {GLFW_KEY_CAPS_LOCK, nullptr, 0},
                      {GLFW_KEY_UNKNOWN, nullptr, 0}};
    for (const auto& c : characters)
        expect(c.key, c.layout_name, gwQWERTY_KEY, c.character);
    int number = 0;
    for (const int key :
         {GLFW_KEY_INSERT, GLFW_KEY_DELETE, GLFW_KEY_HOME, GLFW_KEY_END, GLFW_KEY_PAGE_UP, GLFW_KEY_PAGE_DOWN,
          GLFW_KEY_LEFT, GLFW_KEY_UP, GLFW_KEY_RIGHT, GLFW_KEY_DOWN, GLFW_KEY_PRINT_SCREEN, GLFW_KEY_PAUSE,
          GLFW_KEY_RIGHT_SHIFT, GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_ALT})
        expect(key, nullptr, gwOTHER_KEY, ++number);
    expect(GLFW_KEY_F1, nullptr, gwFUNCTION_KEY, 1);
    expect(GLFW_KEY_F12, nullptr, gwFUNCTION_KEY, 12);
}

TEST(gwGLFWKeys, numbers_buttons_from_left_to_right_and_translates_modifiers)
{
    int number = 0;
    for (const int button : {GLFW_MOUSE_BUTTON_LEFT, GLFW_MOUSE_BUTTON_MIDDLE, GLFW_MOUSE_BUTTON_RIGHT,
                             GLFW_MOUSE_BUTTON_4, GLFW_MOUSE_BUTTON_5})
        EXPECT_EQ(gw_glfw_button(button), ++number);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_SHIFT), 2);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_ALT), 4);
    EXPECT_EQ(gw_glfw_modifiers(GLFW_MOD_CONTROL | GLFW_MOD_ALT | GLFW_MOD_SUPER | GLFW_MOD_CAPS_LOCK), 5);
}
