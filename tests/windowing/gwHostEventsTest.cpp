#include "gwHostEvents.h"

#include "gwHeadlessWindow.h"
#include "tsEventLog.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>

namespace
{
// Plays commands on a window of 200 x 100 pixels: cursor X Y, flush, scale X Y, button 1 (press) or 0 NUMBER MODS,
// key 1 or 0 TYPE NUMBER MODS, wheel D, fine 0/1, blur.
std::string played(const std::string& script)
{
    gwHeadlessWindow window(200, 100);
    tsEventLog log(window.input());
    gwHostEvents events(window);
    std::istringstream words(script);
    for (std::string command; words >> command;)
    {
        const auto number = [&]
        {
            double value = 0;
            words >> value;
            return value;
        };
        const auto whole = [&] { return static_cast<int>(number()); };
        const double first = command == "flush" || command == "blur" ? 0 : number();
        if (command == "flush")
            events.flush();
        else if (command == "blur")
            events.focus_lost();
        else if (command == "cursor")
            events.pointer(first, number());
        else if (command == "scale")
            events.scale(first, number());
        else if (command == "wheel")
            events.wheel(first);
        else if (command == "fine")
            events.fine_wheel(first != 0);
        else
        {
            const int type = command == "key" ? whole() : gwMOUSE_BUTTON;
            const int what = whole(), mods = whole();
            if (command == "button")
                events.button(what, static_cast<int>(first), mods);
            else if (command == "key")
                events.key({static_cast<gwKeyType>(type), what}, static_cast<int>(first), mods);
        }
    }
    return log.taken() + "mods " + std::to_string(events.modifiers());
}
}

TEST(gwHostEvents, posts_what_a_script_says)
{
    for (const auto& row : ts_table(TS_TABLES "windowing.table", "host_events"))
        EXPECT_EQ(played(row[1]), row[2]) << row[0];
}

// All keys of gwTypes.h in the order of their numbers, then F1, F12, F13, the number pad's 0, enter, * and =,
// and two that are not reported: scroll lock, and the key of the window system.
TEST(gwHostEvents, keysyms_and_hid_usages_are_keys)
{
    const unsigned keysyms[] = {0xff63, 0xffff, 0xff50, 0xff57, 0xff55, 0xff56, 0xff51, 0xff52,
                                0xff53, 0xff54, 0xff61, 0xff13, 0xffe2, 0xffe4, 0xffea, 0xffbe,
                                0xffc9, 0xffca, 0xffb0, 0xff8d, 0xffaa, 0xffbd, 0xff14, 0xffeb};
    const unsigned usages[] = {73,  76,  74,  77, 75, 78,  80, 82, 79, 81,  70, 72,
                               229, 228, 230, 58, 69, 104, 98, 88, 85, 103, 71, 227};
    const gwHostKey more[] = {{gwFUNCTION_KEY, 1}, {gwFUNCTION_KEY, 12}, {gwFUNCTION_KEY, 13}, {gwQWERTY_KEY, '0'},
                              {gwQWERTY_KEY, 13},  {gwQWERTY_KEY, '*'},  {gwQWERTY_KEY, '='}};
    for (std::size_t i = 0; i < std::size(keysyms); ++i)
    {
        const gwHostKey expected = i < gwKEY_ALT                     ? gwHostKey{gwOTHER_KEY, static_cast<int>(i) + 1}
                                   : i - gwKEY_ALT < std::size(more) ? more[i - gwKEY_ALT]
                                                                     : gwHostKey();
        for (const gwHostKey& key : {gw_keysym_key(keysyms[i]), gw_hid_key(usages[i])})
        {
            EXPECT_EQ(key.number, expected.number) << i;
            EXPECT_TRUE(key.type == expected.type || !expected.number) << i;
        }
    }
    EXPECT_EQ(gw_x_modifiers(0x12), 0) << "caps and number lock";
    EXPECT_EQ(gw_x_modifiers(0x05), gwMODIFIER_SHIFT | gwMODIFIER_CONTROL);
    EXPECT_EQ(gw_x_modifiers(0x08), gwMODIFIER_ALT);
    EXPECT_EQ(gw_keysym_key('r'), gw_character_key('R'));
    EXPECT_EQ(gw_keysym_key(0xff67).number, 0) << "the menu key, whose low bits are those of g";
    EXPECT_EQ(gw_hid_key(0x15).number, 0) << "R lies elsewhere in other layouts";
}
