#include "grResourceKey.h"

#include "utString.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

namespace
{
const struct
{
    const char* key;
    const char* value;
    const char* complaint; // empty: accepted
} values[] = {
    {"invert_zoom", "maybe", "'maybe' is neither yes nor no"},
    {"framerate", "nan", "'nan' is no number"},
    {"framerate", "inf", "'inf' is no number"},
    {"framerate", "-1", "'-1' is not 0 or more"},
    {"mouse_wheel_zoom_ctl_multiplier", "0", "'0' is not above 0"},
    {"mouse_wheel_zoom_ctl_multiplier", "0.01", ""},
    {"camera_cache_size", "many", "'many' is no whole number"},
    {"camera_cache_size", "0", "'0' is not 1 or more"},
    {"camera_cache_size", "1", ""},
    {"mouse_wheel_zoom_increment", "-1", "'-1' is not between -1 and 1"},
    {"mouse_wheel_zoom_increment", "1", "'1' is not between -1 and 1"},
    {"spaceball_dead_zone", "1", "'1' is not from 0 to below 1"},
    {"trackball_virtual_radius", "1", ""},
    {"trackball_virtual_radius", "1e-5", ""},
    {"trackball_virtual_radius", "1.1", "'1.1' is not from 0.00001 to 1"},
    {"spaceball_rotation_gain", "-3", ""},
    {"xor_colour", "1 nan 0", "'1 nan 0' is no colour such as 1 0.5 0 or 8bit 255 128 0"},
    {"spaceball_signs", "1 1 1 1 1", "'1 1 1 1 1' are not six numbers"},
    {"spaceball_signs", "1 1 1 1 1 inf", "'1 1 1 1 1 inf' are not six numbers"},
    {"spaceball_axes", "x,y,z,rx,ry,rw", "'x,y,z,rx,ry,rw' are not six of x, y, z, rx, ry and rz"},
    {"translations", "mouse_button 1 pan", "expected ':' and the name of a tool, not 'pan'"},
};

std::string document(const char* name)
{
    std::ifstream file(std::string(GR_DOCS) + name);
    return {std::istreambuf_iterator<char>(file), {}};
}
}

TEST(grResourceKey, says_which_values_a_key_accepts)
{
    for (const auto& c : values)
    {
        const grResourceKey* key = grResourceKey::find(c.key);
        ASSERT_NE(key, nullptr) << c.key;
        std::string complaint;
        EXPECT_EQ(key->accepts(c.value, complaint), c.complaint[0] == '\0') << c.key << ' ' << c.value;
        EXPECT_EQ(complaint, c.complaint) << c.key;
    }
    EXPECT_EQ(grResourceKey::find("Framerate"), nullptr);
}

TEST(grResourceKey, accepts_its_own_defaults_and_stands_in_the_documents_as_it_is)
{
    const std::string documents = document("view-tools.md") + document("rubber-banding.md");
    std::set<std::string> names;
    for (const grResourceKey& key : grResourceKey::all())
    {
        EXPECT_TRUE(names.insert(key.name()).second) << key.name() << " is listed twice";
        const std::string text = key.default_text(), row = std::string("| `") + key.name() + "` | " +
                                                           (text.empty() ? "none" : text) + " | " + key.meaning() +
                                                           " |";
        std::string complaint;
        EXPECT_TRUE(text.empty() || key.accepts(text, complaint)) << key.name() << ": " << complaint;
        EXPECT_NE(documents.find(row), std::string::npos) << "no table has\n" << row;
    }
}
