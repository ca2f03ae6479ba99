#include "vwBindings.h"

#include "vwResources.h"

#include "gwResourceDB.h"
#include "utString.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
std::string sheet(const std::string& bindings)
{
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources("", bindings, db, error, nullptr), 1) << error;
    std::ostringstream text;
    vw_write_bindings(db, text);
    return text.str();
}

int has_line(const std::string& text, const std::string& start, const std::string& tool)
{
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(start + "  ") && line.find("  " + tool + "  ") != std::string::npos)
            return 1;
    return 0;
}
}

TEST(vwBindings, every_preset_is_right_and_reaches_all_of_its_actions)
{
    EXPECT_GE(vw_binding_presets().size(), 6u);
    for (const vwBindingPreset& preset : vw_binding_presets())
    {
        EXPECT_EQ(std::string(preset.text).substr(0, 2), "! ") << preset.name;
        const std::string text = sheet(preset.name);
        EXPECT_EQ(text.find("[never"), std::string::npos) << preset.name << "\n" << text;
        // A user of any of them can turn, pan, zoom, zoom to a box and find back.
        for (const char* tool : {" trackball ", " pan (and_pan_centre) ", " zoom (and_pan_centre) ", " zoom_box ",
                                 " view_index (previous) ", " reset ", " isometric "})
            EXPECT_NE(text.find(tool), std::string::npos) << preset.name << tool;
    }
}

TEST(vwBindings, the_sheet_says_what_the_presets_promise)
{
    EXPECT_TRUE(has_line(sheet("cad"), "middle button", "trackball"));
    EXPECT_TRUE(has_line(sheet("cad"), "control + middle button", "pan (and_pan_centre)"));
    EXPECT_TRUE(has_line(sheet("alt-drag"), "alt + left button", "trackball"));
    EXPECT_TRUE(has_line(sheet("right-orbit"), "right button", "trackball"));
    EXPECT_TRUE(has_line(sheet("left-handed"), "right button", "trackball"));
    EXPECT_TRUE(has_line(sheet("left-handed"), "left button", "zoom (and_pan_centre)"));
    EXPECT_EQ(sheet("laptop").find("right button"), std::string::npos);
    EXPECT_EQ(sheet("laptop").find("middle button"), std::string::npos);
    EXPECT_EQ(sheet("default"), sheet("")) << "the default is what is built in";
}

TEST(vwBindings, actions_that_cannot_be_reached_are_marked)
{
    gwResourceDB db;
    db.set_resource("translations", "mouse_button 1 : pan <shift> mouse_button 1 : zoom <alt> mouse_button 2 : zoom "
                                    "<shift> mouse_button 2 : pan");
    std::ostringstream text;
    vw_write_bindings(db, text);
    const std::string sheet = text.str();
    const std::size_t marked = sheet.find("[never");
    ASSERT_NE(marked, std::string::npos);
    EXPECT_GT(marked, sheet.find("shift + left button"));
    EXPECT_LT(marked, sheet.find("alt + middle button"));
    EXPECT_EQ(sheet.find("[never", marked + 1), std::string::npos);
}

TEST(vwBindings, unknown_ones_are_refused_with_a_list)
{
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources("", "nope", db, error, nullptr), 0);
    EXPECT_NE(error.find("'nope'"), std::string::npos);
    EXPECT_NE(error.find("left-handed"), std::string::npos);
    EXPECT_EQ(db.count(), 0);
}
