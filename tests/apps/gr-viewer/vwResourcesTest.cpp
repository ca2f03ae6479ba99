#include "vwResources.h"

#include "gwResourceDB.h"
#include "tsFolder.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

TEST(vwResources, the_built_in_text_passes_the_checks_of_a_file)
{
    const tsFolder folder;
    const std::string file = folder.write("x.res", vw_default_resources());
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources(file, db, error), 1) << error;
    utString value;
    EXPECT_EQ(db.get_resource("translations", value), 1);
    EXPECT_NE(value.str().find("mouse_button 1 : trackball"), std::string::npos);
}

TEST(vwResources, a_file_replaces_the_keys_that_it_names)
{
    const tsFolder folder;
    const std::string file = folder.write("x.res", "invert_zoom: yes\n");
    gwResourceDB db;
    std::string error;
    ASSERT_EQ(vw_load_resources(file, db, error), 1) << error;
    utString value;
    EXPECT_EQ(db.get_resource("invert_zoom", value), 1);
    EXPECT_EQ(value, "yes");
    EXPECT_EQ(db.get_resource("translations", value), 1);
}

TEST(vwResources, mistakes_are_named_by_file_and_line)
{
    for (const auto& row : ts_table(TS_TABLES "mistakes.table", "resources"))
    {
        const tsFolder folder;
        const std::string file = folder.write("x.res", row[1]);
        gwResourceDB db;
        std::string error;
        EXPECT_EQ(vw_load_resources(file, db, error), 0) << row[0];
        EXPECT_EQ(error, file + row[2]) << row[0];
        EXPECT_EQ(db.count(), 0) << row[0];
    }
}

TEST(vwResources, what_has_no_effect_is_reported)
{
    const tsFolder folder;
    const std::string file = folder.write("x.res", "invert_zoom: no\nframe_rate: 20\n! a note\ninvert_zoom: yes\n");
    gwResourceDB db;
    std::string error;
    std::ostringstream warnings;
    EXPECT_EQ(vw_load_resources(file, "", db, error, &warnings), 1) << error;
    EXPECT_EQ(warnings.str(),
              file + ":2: no tool reads 'frame_rate'\n" + file + ":4: invert_zoom: replaces what line 1 sets\n");
}

TEST(vwResources, a_missing_file_is_named)
{
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources("/nowhere/at-all.res", db, error), 0);
    EXPECT_NE(error.find("/nowhere/at-all.res"), std::string::npos);
}
