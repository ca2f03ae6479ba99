#include "gwSpaceballReports.h"

#include "gwHeadlessWindow.h"
#include "gwKeyEvent.h"
#include "gwSpaceballHid.h"
#include "tsEventLog.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace
{
// Plays reports to a window that has the focus: pointer X Y MODS, motion X Y Z RX RY RZ MILLISECONDS, button N 0 or 1,
// focus 0 or 1, flush; hid BYTE... is a report of a device, rest the end of them; key TYPE 0 or 1 is another key of the
// window.
std::string played(const std::string& script)
{
    gwHeadlessWindow window(400, 300);
    tsEventLog log(window.input());
    gwSpaceballReports reports(window);
    gwSpaceballHid device;
    reports.focus(1);
    std::istringstream words(script);
    for (std::string command; words >> command;)
    {
        std::vector<int> n;
        for (int number; words >> number;)
            n.push_back(number);
        words.clear();
        const std::vector<unsigned char> bytes(n.begin(), n.end());
        n.resize(7);
        if (command == "pointer")
            reports.pointer(n[0], n[1], n[2]);
        else if (command == "motion")
            reports.motion({n[0], n[1], n[2]}, {n[3], n[4], n[5]}, n[6]);
        else if (command == "button")
            reports.button(n[0], n[1]);
        else if (command == "key")
            window.input().post(gwKeyEvent(&window, 0, 0, 0, n[1], static_cast<gwKeyType>(n[0]), 1));
        else if (command == "focus")
            reports.focus(n[0]);
        else if (command == "hid")
            device.report(bytes.data(), bytes.size(), reports);
        else if (command == "rest")
            device.flush(reports);
        else
            reports.flush();
    }
    return log.taken();
}
}

TEST(gwSpaceballReports, posts_what_a_script_says)
{
    for (const auto& row : ts_table(TS_TABLES "reports.table", "reports"))
        EXPECT_EQ(played(row[1]), row[2]) << row[0];
}

TEST(gwSpaceballReports, every_button_has_a_number_of_its_own)
{
    std::set<std::string> posted{"press 4:321 at 0,0 mods 0; "};
    for (int button = 0; button < 400; ++button)
        EXPECT_TRUE(posted.insert(played("button " + std::to_string(button) + " 1")).second) << button;
}
