#include "apSystemFonts.h"

#include "apFontCollection.h"

#include "tsFontFolder.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

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

void put_number(std::string& bytes, std::size_t at, std::size_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>(value >> (24 - 8 * i));
}

// The fonts one behind the other, with the places of their tables counted from the start of the file.
std::string collection(const std::vector<std::string>& fonts)
{
    std::string file("ttcf\0\1\0\0", 8);
    file.resize(12 + 4 * fonts.size());
    put_number(file, 8, fonts.size());
    for (std::size_t i = 0; i < fonts.size(); ++i)
    {
        file.resize((file.size() + 3) / 4 * 4);
        put_number(file, 12 + 4 * i, file.size());
        std::string font = fonts[i];
        for (std::uint32_t table = 0; table < number(font, 4, 2); ++table)
            put_number(font, 20 + 16 * table, number(font, 20 + 16 * table, 4) + file.size());
        file += font;
    }
    return file;
}

// Where a table starts: the font's directory has 16 bytes for each, behind the first 12.
std::size_t table_of(const std::string& font, const char* name)
{
    for (std::size_t entry = 12; entry < 12 + 16 * number(font, 4, 2); entry += 16)
        if (font.compare(entry, 4, name) == 0)
            return number(font, entry + 8, 4);
    throw std::runtime_error(name);
}
}

TEST(apSystemFonts, families_are_listed_once_and_faces_with_their_names_weights_and_slants)
{
    std::ostringstream faces;
    for (const auto& [name, face] : faces_of("Liberation Sans"))
    {
        apFaceData data;
        EXPECT_EQ(apSystemFonts::find_face(name, data), 1) << name;
        faces << name << ' ' << face.weight << ' ' << face.italic << ' ' << face.font_type << ' ' << face.character_set
              << ' ' << std::filesystem::path(data.file).filename().string() << '\n';
    }
    EXPECT_EQ(faces.str(), "Liberation Sans 400 0 4 0 LiberationSans-Regular.ttf\n"
                           "Liberation Sans Bold 700 0 4 0 LiberationSans-Bold.ttf\n"
                           "Liberation Sans Bold Italic 700 1 4 0 LiberationSans-BoldItalic.ttf\n"
                           "Liberation Sans Italic 400 1 4 0 LiberationSans-Italic.ttf\n")
        << "install fonts-liberation";
    // A family groups four styles at most: the light and the condensed faces have families of their own.
    EXPECT_EQ(faces_of("DejaVu Sans").count("DejaVu Sans Condensed"), 0u);
    std::multiset<std::string> families;
    apSystemFonts().enumerate(nullptr, [&](const apSystemFace& face) { families.insert(face.family); });
    EXPECT_EQ(families.count("DejaVu Sans"), 1u);
    EXPECT_EQ(families.size(), std::set<std::string>(families.begin(), families.end()).size());
}

TEST(apSystemFonts, the_character_set_follows_from_the_code_pages)
{
    tsFontFolder folder;
    for (const auto& row : ts_table(TS_TABLES "families.table", "character_sets"))
    {
        std::string font = tsRenamedFont(row[0]);
        // Bits of code pages stand 78 bytes into their table; a Windows encoding of characters has two numbers, 3 and
        // 1 for Unicode or 0 for symbols, at the head of 8 bytes for each, behind the first 4.
        std::size_t pages = 0;
        for (const double page : ts_numbers(row[1]))
            pages |= std::size_t(1) << int(page);
        put_number(font, table_of(font, "OS/2") + 78, pages);
        const std::size_t cmap = table_of(font, "cmap");
        for (std::size_t at = cmap + 4; at < cmap + 4 + 8 * number(font, cmap + 2, 2); at += 8)
            if (row[2] == "symbols" && number(font, at, 4) == 0x30001)
                put_number(font, at, 0x30000);
        const apPathName file(folder.write(row[0], font).str());
        ASSERT_EQ(apSystemFonts::add_private(file), 1);
        const auto faces = faces_of(row[0].c_str());
        ASSERT_EQ(faces.size(), 1u) << row[0];
        EXPECT_EQ(faces.begin()->second.character_set, std::stoi(row[3])) << row[0];
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
    EXPECT_EQ(apSystemFonts::find_face("Liberation Sans Narrow Bold Italic", data), 1) << "longer than GDI asks for";
}

TEST(apSystemFonts, faces_of_collections_are_told_apart)
{
    tsFontFolder folder;
    const std::vector<std::string> names{"Vantor Able", "Vantor Belt"};
    const apPathName file(
        folder.write("both.ttc", collection({tsRenamedFont(names[0]), tsRenamedFont(names[1])})).str());
    ASSERT_EQ(apSystemFonts::add_private(file), 1);
    for (int i = 0; i < 2; ++i)
    {
        apFaceData data;
        EXPECT_EQ(apSystemFonts::find_face(names[i], data), 1) << names[i];
        EXPECT_EQ(data.face_index, i);
        EXPECT_TRUE(data.file.ends_with("both.ttc") || !data.bytes.empty()) << data.file;
    }
    EXPECT_EQ(apSystemFonts::remove_private(file), 1);
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
