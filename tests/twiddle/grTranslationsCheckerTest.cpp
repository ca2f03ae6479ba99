#include "grTranslationsChecker.h"

#include "grStdToolFactory.h"

#include <gtest/gtest.h>

namespace
{
const struct
{
    const char* name;
    const char* text;
    int line, column;
    const char* complaint;
} faults[] = {
    {"key type", "mouse_buton 1 : pan", 1, 1,
     "expected qwerty_key, function_key, mouse_button or other_key, not 'mouse_buton'"},
    {"key number", "mouse_button left : pan", 1, 14, "expected the number of the key, not 'left'"},
    {"other key", "other_key enter : pan", 1, 11, "there is no other_key 'enter'"},
    {"ctrl", "<ctrl> mouse_button 1 : pan", 1, 2, "there is no modifier 'ctrl'; it is 'control'"},
    {"modifier on the third line",
     "mouse_button 1 : pan \\\n mouse_button 2 : zoom \\\r\n  <shift meta> mouse_button 3 : pan", 3, 10,
     "there is no modifier 'meta'; there are control, shift, alt and f1 to f12"},
    {"no end of the modifiers", "mouse_button 1 : pan <shift", 1, 22, "'<' has no '>'"},
    {"no colon", "mouse_button 1 pan", 1, 16, "expected ':' and the name of a tool, not 'pan'"},
    {"no tool", "mouse_button 1 : (x)", 1, 18, "expected the name of a tool, not '('"},
    {"nothing behind the colon", "mouse_button 1 :", 1, 17, "expected the name of a tool, not the end of the text"},
    {"unknown tool", "mouse_button 1 : pan\tmouse_button 2 : Pan", 1, 39, "there is no tool 'Pan'"},
    {"no end of the arguments", "mouse_button 1 : pan (a,b \\\n c", 1, 22, "'(' has no ')'"},
    {"a word cut by the end of a line", "mouse_\\\nbuton 1 : pan", 1, 1,
     "expected qwerty_key, function_key, mouse_button or other_key, not 'mouse_buton'"},
    {"a line that does not go on", "mouse_button 1 : pan\nmouse_button 2 : zoom", 1, 21,
     "expected qwerty_key, function_key, mouse_button or other_key, not the end of the line (a backslash goes on)"},
    {"a line that does not go on before the tool", "mouse_button 1 :\nmouse_button 2 : pan", 1, 17,
     "expected the name of a tool, not the end of the line (a backslash goes on)"},
};

const char* const right[] = {"", "  \t,", "mouse_button 1 : pan", "<> mouse_button 1 : pan ()",
                             "<control,shift f3> other_key ctrl : zoom (and_pan_centre), function_key 2 : reset"};
}

TEST(grTranslationsChecker, names_the_place_of_the_first_fault)
{
    const grStdToolFactory factory(nullptr, nullptr);
    grTranslationsChecker checker({&factory});
    for (const auto& fault : faults)
    {
        EXPECT_EQ(checker.check(fault.text), 0) << fault.name;
        EXPECT_EQ(checker.line(), fault.line) << fault.name;
        EXPECT_EQ(checker.column(), fault.column) << fault.name;
        EXPECT_EQ(checker.complaint(), fault.complaint) << fault.name;
    }
}

TEST(grTranslationsChecker, accepts_what_is_right)
{
    grTranslationsChecker checker({});
    for (const char* text : right)
        EXPECT_EQ(checker.check(text), 1) << text << checker.complaint();
}
