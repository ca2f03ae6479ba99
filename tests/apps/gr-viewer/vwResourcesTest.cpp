#include "vwResources.h"

#include "gwResourceDB.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{
// A resource file that is gone with the object.
class File
{
public:
    explicit File(const std::string& text) : the_path(testing::TempDir() + "vw-test.res")
    {
        std::ofstream(the_path, std::ios::binary) << text;
    }
    ~File() { std::filesystem::remove(the_path); }
    const std::string& path() const { return the_path; }

private:
    std::string the_path;
};

const struct
{
    const char* name;
    const char* text;
    const char* line_and_text; // behind the file's name
} bad_cases[] = {
    {"no colon", "framerate: 20\nthis is wrong\n", ":2: a line of a resource file is 'key: value'"},
    {"no number", "! first\nmouse_wheel_delay: soon\n", ":2: mouse_wheel_delay: 'soon' is no number"},
    {"no boolean", "invert_zoom: perhaps\n", ":1: invert_zoom: 'perhaps' is neither yes nor no"},
    {"beyond its limits", "spaceball_dead_zone: 1\n", ":1: spaceball_dead_zone: '1' is not from 0 to below 1"},
    {"a rate that is none",
     "\xEF\xBB\xBF"
     "framerate: nan\n",
     ":1: framerate: 'nan' is no number"},
    {"unknown tool", "translations: mouse_button 1 : trackball \\\n  mouse_button 2 : pan \\\n  mouse_button 3 : fly\n",
     ":3:20: translations: there is no tool 'fly'"},
    {"unknown modifier", "\ntranslations: \\\r\n  mouse_button 1 : trackball \\\r\n  <meta> mouse_button 2 : pan\r\n",
     ":4:4: translations: there is no modifier 'meta'; there are control, shift, alt and f1 to f12"},
    {"in a second setting of the key", "translations: mouse_button 1 : pan\ntranslations : mouse_button 1 pan\n",
     ":2:31: translations: expected ':' and the name of a tool, not 'pan'"},
};
}

TEST(vwResources, the_built_in_text_passes_the_checks_of_a_file)
{
    const File file(vw_default_resources());
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources(file.path(), db, error), 1) << error;
    utString value;
    EXPECT_EQ(db.get_resource("translations", value), 1);
    EXPECT_NE(value.str().find("mouse_button 1 : trackball"), std::string::npos);
}

TEST(vwResources, a_file_replaces_the_keys_that_it_names)
{
    const File file("invert_zoom: yes\n");
    gwResourceDB db;
    std::string error;
    ASSERT_EQ(vw_load_resources(file.path(), db, error), 1) << error;
    utString value;
    EXPECT_EQ(db.get_resource("invert_zoom", value), 1);
    EXPECT_EQ(value, "yes");
    EXPECT_EQ(db.get_resource("translations", value), 1);
}

TEST(vwResources, mistakes_are_named_by_file_and_line)
{
    for (const auto& c : bad_cases)
    {
        const File file(c.text);
        gwResourceDB db;
        std::string error;
        EXPECT_EQ(vw_load_resources(file.path(), db, error), 0) << c.name;
        EXPECT_EQ(error, file.path() + c.line_and_text) << c.name;
        EXPECT_EQ(db.count(), 0) << c.name;
    }
}

TEST(vwResources, what_has_no_effect_is_reported)
{
    const File file("invert_zoom: no\nframe_rate: 20\n! a note\ninvert_zoom: yes\n");
    gwResourceDB db;
    std::string error;
    std::ostringstream warnings;
    EXPECT_EQ(vw_load_resources(file.path(), "", db, error, &warnings), 1) << error;
    EXPECT_EQ(warnings.str(), file.path() + ":2: no tool reads 'frame_rate'\n" + file.path() +
                                  ":4: invert_zoom: replaces what line 1 sets\n");
}

TEST(vwResources, a_missing_file_is_named)
{
    gwResourceDB db;
    std::string error;
    EXPECT_EQ(vw_load_resources("/nowhere/at-all.res", db, error), 0);
    EXPECT_NE(error.find("/nowhere/at-all.res"), std::string::npos);
}
