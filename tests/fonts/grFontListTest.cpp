#include "tsFontFolder.h"

#include <gtest/gtest.h>

#include <sstream>

using Families = std::vector<std::string>;

namespace
{
// A reader on a folder in which the fonts "a" to "d" are found, as .pfa and as .pfb.
class FontList : public testing::Test
{
protected:
    FontList()
    {
        for (const char* stem : {"a", "b", "c", "d", "e, f"})
        {
            the_folder.link(stem);
            the_folder.link_file(std::string(stem) + ".pfb", tsUrwFont("NimbusMonoPS-Regular.pfb"));
        }
    }

    int append(const std::string& text)
    {
        return the_reader.append_font_list(the_folder.write("list", text), the_line);
    }

    const tsNoSystemFonts the_system;
    tsFontFolder the_folder;
    grOutlineFontFamilyReader the_reader{the_folder.path(), the_folder.path()};
    int the_line = 77;
};
}

TEST_F(FontList, adds_the_families_of_good_lines)
{
    EXPECT_EQ(append("# two families\n"
                     "\n"
                     "adobe_pfa, One, a, b, c, d\n"
                     "\tadobe_pfb\t,  Two words  , , b,,\t\r\n"
                     "truetype, 204, Three, a,,,"),
              0);
    EXPECT_EQ(the_line, -1);
    ASSERT_EQ(tsFamilies(the_reader), (Families{"2 One", "3 Two words", "1 Three"}));
    EXPECT_EQ(the_reader.family(0).bold_italic_font(), the_folder / "d.pfa");
    EXPECT_EQ(the_reader.family(0).bold_italic_afm(), the_folder / "d.afm");
    EXPECT_EQ(the_reader.family(1).bold_font(), the_folder / "b.pfb");
    EXPECT_EQ(the_reader.family(1).normal_available(), 0);
    EXPECT_EQ(the_reader.char_set(ltADOBE_PFB_FONT, "Two words"), 0);
    // Deliberate: a line of a TrueType font looks for a binary Type 1 file.
    EXPECT_EQ(the_reader.family(2).normal_font(), the_folder / "a.pfb");
    EXPECT_EQ(the_reader.char_set(ltTRUETYPE_FONT, "Three"), 204);
}

TEST_F(FontList, the_last_name_runs_to_the_end_of_the_line)
{
    EXPECT_EQ(append("adobe_pfa, One, , , , e, f"), 0);
    ASSERT_EQ(the_reader.num_families(), 1);
    EXPECT_EQ(the_reader.family(0).bold_italic_font(), the_folder / "e, f.pfa");
}

TEST_F(FontList, families_without_files_and_families_that_exist_are_passed_over)
{
    EXPECT_EQ(append("adobe_pfa, None, x, y, z, \n"
                     "adobe_pfa, One, a, , , \n"
                     "adobe_pfa, One, b, , , \n"
                     "truetype, 0, Windows face, Arial, , , \n"),
              0);
    ASSERT_EQ(tsFamilies(the_reader), Families{"2 One"});
    EXPECT_EQ(the_reader.family(0).normal_font(), the_folder / "a.pfa");
}

TEST_F(FontList, names_may_be_absolute)
{
    const std::string stem = (the_folder / "a").str();
    grOutlineFontFamilyReader elsewhere("/nowhere", "/nowhere");
    EXPECT_EQ(elsewhere.append_font_list(the_folder.write("list", "adobe_pfa, One, " + stem + ", , ,"), the_line), 0);
    ASSERT_EQ(elsewhere.num_families(), 1);
    EXPECT_EQ(elsewhere.family(0).normal_afm(), the_folder / "a.afm");
}

TEST_F(FontList, a_bad_line_ends_the_reading_and_is_named)
{
    const std::string long_name(5000, 'x');
    const struct
    {
        const char* name;
        std::string line;
    } cases[] = {
        {"keyword and family alone", "adobe_pfb, Courier"},
        {"a style missing", "adobe_pfa, One, a, b, c"},
        {"no comma", "adobe_pfa"},
        {"unknown keyword", "opentype, One, a, b, c, d"},
        {"keyword in capitals", "ADOBE_PFA, One, a, b, c, d"},
        {"type without keyword", "morvex, One, a, b, c, d"},
        {"family empty", "adobe_pfa,  , a, b, c, d"},
        {"all styles empty", "adobe_pfa, One, , , ,  "},
        {"no language", "truetype, One, a, b, c, d"},
        {"language with a tail", "truetype, 12x, One, a, b, c, d"},
        {"language that is too large", "truetype, 99999999999, One, a, b, c, d"},
        {"blanks alone", "   "},
        {"comment behind a blank", " # adobe_pfa"},
        {"too long", "adobe_pfa, " + long_name + ", a, b, c, d"},
    };
    int n_families = 0;
    for (const auto& c : cases)
    {
        const std::string good = "adobe_pfa, Good " + std::to_string(n_families) + ", a, , , \n";
        the_line = 77;
        EXPECT_EQ(append("# comment\n\n" + good + c.line + "\nadobe_pfa, After, a, , , \n"), 1) << c.name;
        EXPECT_EQ(the_line, 4) << c.name;
        EXPECT_EQ(the_reader.num_families(), ++n_families) << c.name;
    }
    EXPECT_EQ(the_reader.family_exists(ltADOBE_PFA_FONT, "After"), 0);
}

TEST_F(FontList, lines_hold_up_to_4096_characters)
{
    // "adobe_pfa, " and ", a, , ," have 11 and 8 characters.
    const std::string family(4096 - 19, 'x');
    for (const char* end : {"", "\n", "\r\n"})
    {
        grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
        const utString good = the_folder.write("good", "adobe_pfa, " + family + ", a, , ," + end);
        EXPECT_EQ(reader.append_font_list(good, the_line), 0);
        EXPECT_EQ(reader.num_families(), 1);
        const utString bad = the_folder.write("bad", "adobe_pfa, " + family + "y, a, , ," + end);
        EXPECT_EQ(reader.append_font_list(bad, the_line), 1);
        EXPECT_EQ(the_line, 1);
    }
}

TEST_F(FontList, comments_may_be_of_any_length)
{
    EXPECT_EQ(append("#" + std::string(100000, '-') + "\nadobe_pfa, One, a, , ,\n"), 0);
    EXPECT_EQ(the_reader.num_families(), 1);
}

TEST_F(FontList, a_file_that_cannot_be_opened_is_bad_without_a_line)
{
    EXPECT_EQ(the_reader.append_font_list(the_folder / "none", the_line), 1);
    EXPECT_EQ(the_line, -1);
    the_line = 77;
    EXPECT_EQ(the_reader.append_font_list(the_folder.path(), the_line), 1);
    EXPECT_EQ(the_line, -1);
    EXPECT_EQ(append(""), 0);
    EXPECT_EQ(the_line, -1);
}

TEST_F(FontList, families_are_dumped_field_by_field)
{
    EXPECT_EQ(append("truetype, 204, One, , a, ,"), 0);
    std::ostringstream dump;
    dump << the_reader.family(0);
    const std::string folder = the_folder.path().str();
    EXPECT_EQ(dump.str(),
              "grOutlineFontListElement {\n  the_font_type is 1\n  the_language is 204\n"
              "  the_family_name is One\n  the_normal_font is \n  the_bold_font is " +
                  folder +
                  "/a.pfb\n  the_italic_font is \n  the_bold_italic_font is \n"
                  "  the_normal_afm is \n  the_bold_afm is " +
                  folder +
                  "/a.afm\n  the_italic_afm is \n"
                  "  the_bold_italic_afm is \n  the_family_installed is 0\n  the_renderer_index is -1\n}\n");
}

TEST(grFontListFiles, the_list_of_the_urw_fonts_finds_every_file)
{
    const tsNoSystemFonts none;
    grOutlineFontFamilyReader reader("/usr/share/fonts/X11/Type1", "/usr/share/fonts/type1/urw-base35");
    int line = 0;
    ASSERT_EQ(reader.append_font_list(GR_SHARE "/fonts/urw-base35.fonts", line), 0) << "line " << line;
    // The 35 fonts: eight families of four styles and three of one.
    EXPECT_EQ(reader.num_families(), 11) << "install fonts-urw-base35";
    int n_fonts = 0;
    for (int i = 0; i < reader.num_families(); ++i)
        n_fonts += reader.family(i).normal_available() + reader.family(i).bold_available() +
                   reader.family(i).italic_available() + reader.family(i).bold_italic_available();
    EXPECT_EQ(n_fonts, 35);
}
