#include "flProgress.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

TEST(flProgress, draws_changes_alone_and_wipes_itself_away)
{
    std::ostringstream terminal;
    {
        flProgress bar(&terminal, "reading");
        bar.show(0.5);
        const std::string half = terminal.str();
        EXPECT_NE(half.find("[####################                    ] 50%"), std::string::npos) << half;
        bar.show(0.5001);
        EXPECT_EQ(terminal.str(), half);
        bar.show(7);
        EXPECT_NE(terminal.str().find("100%"), std::string::npos);
    }
    const std::string all = terminal.str();
    const std::size_t last_line = all.rfind('\r', all.size() - 2);
    EXPECT_EQ(all.find_first_not_of(" \r", last_line), std::string::npos) << "the line is left blank";
}
