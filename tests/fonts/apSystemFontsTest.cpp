#include "apSystemFonts.h"

#include "apFontCollection.h"

#include "tsFontFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>

namespace
{
std::map<std::string, apSystemFace> faces_of(const char* family)
{
    std::map<std::string, apSystemFace> faces;
    apSystemFonts().enumerate(family, [&](const apSystemFace& face) { faces[face.full_name] = face; });
    return faces;
}

std::uint32_t number(const std::string& bytes, std::size_t at, int n_bytes)
{
    std::uint32_t value = 0;
    for (int i = 0; i < n_bytes; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

// The same font with other code pages: the field stands 78 bytes into the OS/2 table, which the directory of 16 bytes a
// table behind the first 12 bytes finds.
std::string with_code_pages(std::string font, std::uint32_t pages)
{
    for (std::uint32_t i = 0; i < number(font, 4, 2); ++i)
    {
        const std::size_t entry = 12 + 16 * std::size_t(i);
        if (font.compare(entry, 4, "OS/2") != 0)
            continue;
        const std::size_t at = number(font, entry + 8, 4) + 78;
        for (int byte = 0; byte < 4; ++byte)
            font[at + static_cast<std::size_t>(byte)] = static_cast<char>(pages >> (24 - 8 * byte));
        return font;
    }
    ADD_FAILURE() << "no OS/2 table";
    return font;
}
}

TEST(apSystemFonts, faces_have_their_names_weights_and_slants)
{
    const auto faces = faces_of("Liberation Sans");
    ASSERT_EQ(faces.size(), 4u) << "install fonts-liberation";
    const struct
    {
        const char* full_name;
        int weight, italic;
        const char* file;
    } expected[] = {{"Liberation Sans", 400, 0, "LiberationSans-Regular.ttf"},
                    {"Liberation Sans Bold", 700, 0, "LiberationSans-Bold.ttf"},
                    {"Liberation Sans Italic", 400, 1, "LiberationSans-Italic.ttf"},
                    {"Liberation Sans Bold Italic", 700, 1, "LiberationSans-BoldItalic.ttf"}};
    for (const auto& e : expected)
    {
        ASSERT_TRUE(faces.count(e.full_name)) << e.full_name;
        const apSystemFace& face = faces.at(e.full_name);
        EXPECT_EQ(face.weight, e.weight) << e.full_name;
        EXPECT_EQ(face.italic, e.italic) << e.full_name;
        EXPECT_EQ(face.font_type, apFONT_TYPE_TRUETYPE);
        EXPECT_EQ(face.character_set, 0);
        EXPECT_TRUE(face.file.ends_with(e.file)) << face.file;
    }
    // A family groups four styles at most: the light and the condensed faces have families of their own.
    EXPECT_EQ(faces_of("DejaVu Sans").count("DejaVu Sans Condensed"), 0u);
}

TEST(apSystemFonts, every_family_is_listed_once)
{
    std::multiset<std::string> families;
    apSystemFonts().enumerate(nullptr, [&](const apSystemFace& face) { families.insert(face.family); });
    EXPECT_EQ(families.count("DejaVu Sans"), 1u);
    for (const std::string& family : families)
        EXPECT_EQ(families.count(family), 1u) << family;
    EXPECT_TRUE(faces_of("No such family").empty());
}

TEST(apSystemFonts, the_character_set_follows_from_the_code_pages)
{
    const auto bits = [](std::initializer_list<int> numbers)
    {
        std::uint32_t mask = 0;
        for (const int bit : numbers)
            mask |= 1u << bit;
        return mask;
    };
    const struct
    {
        const char* family;
        std::uint32_t pages;
        int character_set;
    } cases[] = {{"Test Latin ", bits({0, 1, 2, 3}), 0},
                 {"Test Cyril ", bits({2}), 204},
                 {"Test Greek ", bits({3, 29}), 161},
                 {"Test Japan ", bits({0, 17}), 128},
                 {"Test China ", bits({0, 18}), 134},
                 {"Test Korea ", bits({0, 2, 19}), 129},
                 {"Test Taiwan", bits({0, 20}), 136},
                 {"Test Symbol", bits({31}), 2},
                 {"Test World ", bits({0, 2, 17, 18, 19, 20}), 0},
                 {"Test Nothin", 0, 0}};
    tsFontFolder folder;
    for (const auto& c : cases)
    {
        const std::string font = with_code_pages(tsRenamedFont(c.family), c.pages);
        const apPathName file(folder.write(c.family, font).str());
        ASSERT_EQ(apSystemFonts::add_private(file), 1);
        std::string family(c.family);
        family.resize(family.find_last_not_of(' ') + 1);
        std::map<std::string, apSystemFace> faces = faces_of(family.c_str());
        if (faces.empty())
            faces = faces_of(c.family);
        EXPECT_EQ(faces.size(), 1u) << c.family;
        for (const auto& [name, face] : faces)
            EXPECT_EQ(face.character_set, c.character_set) << c.family;
        EXPECT_EQ(apSystemFonts::remove_private(file), 1);
    }
}

TEST(apSystemFonts, faces_are_found_by_full_name_whatever_its_case)
{
    apFaceData data;
    ASSERT_EQ(apSystemFonts::find_face("dejavu sans BOLD", data), 1);
    EXPECT_TRUE(data.file.ends_with("DejaVuSans-Bold.ttf")) << data.file;
    const std::string file = data.file;
    EXPECT_EQ(apSystemFonts::find_face("DejaVu Sans Bol", data), 0);
    EXPECT_EQ(apSystemFonts::find_face("", data), 0);
    EXPECT_EQ(data.file, file) << "untouched";
}

TEST(apSystemFonts, overrides_nest)
{
    const apSystemFontsOverride outer({{"One", "One", 400, 0, 0, apFONT_TYPE_TRUETYPE, "/one.ttf", 0}});
    {
        const apSystemFontsOverride inner({});
        EXPECT_TRUE(faces_of("One").empty());
    }
    EXPECT_EQ(faces_of("One").size(), 1u);
    EXPECT_TRUE(faces_of("DejaVu Sans").empty());
}

TEST(apFontCollection, finds_the_face_whose_table_directory_starts_at_an_offset)
{
    std::vector<unsigned char> bytes{'t', 't', 'c', 'f', 0, 1, 0, 0, 0, 0, 0, 2, 0, 0, 0, 20, 0, 1, 2, 3};
    EXPECT_EQ(ap_collection_face_index(bytes, 20), 0);
    EXPECT_EQ(ap_collection_face_index(bytes, 0x10203), 1);
    EXPECT_EQ(ap_collection_face_index(bytes, 21), -1);
    bytes.resize(17);
    EXPECT_EQ(ap_collection_face_index(bytes, 20), 0);
    EXPECT_EQ(ap_collection_face_index(bytes, 0x10203), -1) << "cut short";
    bytes[0] = 'x';
    EXPECT_EQ(ap_collection_face_index(bytes, 20), -1);
}
