#include "tsFontFolder.h"

#include <gtest/gtest.h>

using Families = std::vector<std::string>;

namespace
{
apSystemFace face(const char* family, const char* full_name, int weight = 400, int italic = 0, int character_set = 0,
                  int font_type = apFONT_TYPE_TRUETYPE)
{
    return {family, full_name, weight, italic, character_set, font_type, "", 0};
}
}

TEST(grOutlineFontFamilyReader, offers_nothing_where_there_are_no_fonts)
{
    const tsNoSystemFonts none;
    const tsFontFolder folder;
    const grOutlineFontFamilyReader reader(folder.path(), folder.path());
    EXPECT_EQ(reader.num_families(), 0);
    EXPECT_EQ(reader.family_exists(ltADOBE_PFA_FONT, "AvantGarde"), 0);
    EXPECT_EQ(reader.char_set(ltADOBE_PFA_FONT, "AvantGarde"), -1);
    EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "AvantGarde"), -1);
}

TEST(grOutlineFontFamilyReader, a_family_needs_one_of_its_files)
{
    const tsNoSystemFonts none;
    tsFontFolder folder;
    folder.link("courb");
    const grOutlineFontFamilyReader reader(folder.path(), folder.path());
    ASSERT_EQ(tsFamilies(reader), Families{"2 Courier"});
    const grOutlineFontListElement& courier = reader.family(0);
    EXPECT_EQ(courier.bold_available(), 1);
    EXPECT_EQ(courier.normal_available() + courier.italic_available() + courier.bold_italic_available(), 0);
    EXPECT_EQ(courier.bold_font(), folder / "courb.pfa");
    EXPECT_EQ(courier.bold_afm(), folder / "courb.afm");
    EXPECT_EQ(courier.language_name(), 0);
    EXPECT_EQ(courier.family_installed(), 0);
    EXPECT_EQ(courier.renderer_index(), -1);
}

TEST(grOutlineFontFamilyReader, an_earlier_row_of_a_family_wins_over_a_later_one)
{
    const tsNoSystemFonts none;
    tsFontFolder folder;
    folder.link("cour");
    folder.link("Courier-Bold");
    folder.link("Symbol", "Symbol");
    folder.link_file("cour.pfb", tsUrwFont("NimbusMonoPS-Regular.pfb"));
    const grOutlineFontFamilyReader reader(folder.path(), folder.path());
    // Row order, one Courier of each type; Symbol is not added again by its second row.
    ASSERT_EQ(tsFamilies(reader), (Families{"2 Courier", "2 Symbol", "3 Courier"}));
    EXPECT_EQ(reader.family(0).bold_font(), folder / "Courier-Bold.pfa");
    EXPECT_EQ(reader.family(0).normal_available(), 0);
    EXPECT_EQ(reader.family(2).normal_font(), folder / "cour.pfb");
    EXPECT_EQ(reader.family_exists(ltADOBE_PFB_FONT, "courier"), 0);
    EXPECT_EQ(reader.family_exists(ltTRUETYPE_FONT, "Courier"), 0);
}

TEST(grOutlineFontFamilyReader, fonts_are_searched_on_the_first_path_and_metrics_on_the_second)
{
    const tsNoSystemFonts none;
    tsFontFolder fonts, more_fonts, metrics;
    more_fonts.link_file("Times-Roman.pfa", tsHtmldocFont("Times-Roman.pfa"));
    metrics.link_file("Times-Roman.afm", tsHtmldocFont("Times-Roman.afm"));
    const utString font_path = fonts.path() + ";" + more_fonts.path();
    const grOutlineFontFamilyReader reader(font_path, metrics.path());
    ASSERT_EQ(tsFamilies(reader), Families{"2 Times"});
    EXPECT_EQ(reader.family(0).normal_font(), more_fonts / "Times-Roman.pfa");
    EXPECT_EQ(reader.family(0).normal_afm(), metrics / "Times-Roman.afm");
    EXPECT_EQ(grOutlineFontFamilyReader(metrics.path(), font_path).num_families(), 0);
}

TEST(grOutlineFontFamilyReader, metrics_are_searched_under_the_bare_stem_first)
{
    const tsNoSystemFonts none;
    tsFontFolder folder;
    folder.link("Symbol", "Symbol");
    folder.link_file("Symbol", tsHtmldocFont("Symbol.afm"));
    EXPECT_EQ(grOutlineFontFamilyReader(folder.path(), folder.path()).family(0).normal_afm(), folder / "Symbol");
}

TEST(grOutlineFontFamilyReader, a_font_without_metrics_is_no_font)
{
    const tsNoSystemFonts none;
    tsFontFolder folder;
    folder.link_file("Symbol.pfa", tsHtmldocFont("Symbol.pfa"));
    folder.make_folder("Symbol"); // no file of metrics, though the name is there
    EXPECT_EQ(grOutlineFontFamilyReader(folder.path(), folder.path()).num_families(), 0);
}

TEST(grOutlineFontFamilyReader, paths_that_lead_nowhere_are_no_error)
{
    const tsNoSystemFonts none;
    for (const char* path : {"", ";;", "/nowhere/at/all", "/dev/null", "\xff\xfe"})
        EXPECT_EQ(grOutlineFontFamilyReader(path, path).num_families(), 0) << path;
}

TEST(grOutlineFontFamilyReader, system_families_are_filtered_by_their_first_face)
{
    const apSystemFontsOverride system({
        face("Western", "Western"),
        face("Symbols", "Symbols", 400, 0, 2),
        face("Japanese", "Japanese", 400, 0, 128),
        face("Korean", "Korean", 400, 0, 129),
        face("Simplified", "Simplified", 400, 0, 134),
        face("Traditional", "Traditional", 400, 0, 136),
        face("Cyrillic", "Cyrillic", 400, 0, 204),
        face("Greek", "Greek", 400, 0, 161),
        face("Bitmap", "Bitmap", 400, 0, 0, apFONT_TYPE_RASTER),
        face("Mixed bits", "Mixed bits", 400, 0, 0, apFONT_TYPE_TRUETYPE | apFONT_TYPE_DEVICE),
        face("Courier", "Courier"),
        face("courier", "courier"),
        face("\xff", "undecodable"),
        face("Western", "Western Greek face", 400, 0, 161),
    });
    const grOutlineFontFamilyReader reader("", "");
    EXPECT_EQ(tsFamilies(reader), (Families{"1 Western", "1 Symbols", "1 Japanese", "1 Korean", "1 Simplified",
                                            "1 Traditional", "1 Cyrillic", "1 Mixed bits", "1 courier"}));
    EXPECT_EQ(reader.char_set(ltTRUETYPE_FONT, "Korean"), 129);
    // Its faces are not filtered: the later face has replaced the earlier one, but not its character set.
    EXPECT_EQ(tsFind(reader, ltTRUETYPE_FONT, "Western")->normal_font(), "Western Greek face");
    EXPECT_EQ(reader.char_set(ltTRUETYPE_FONT, "Western"), 0);
}

TEST(grOutlineFontFamilyReader, styles_of_system_families_follow_from_weight_and_slant)
{
    const apSystemFontsOverride system({
        face("Sans", "Sans Light", 300, 0, 204),
        face("Sans", "Sans Medium", 500, 0, 0),
        face("Sans", "Sans Medium Italic", 500, 1, 0),
        face("Sans", "Sans Semibold", 501, 0, 0),
        face("Sans", "Sans Black Italic", 900, 1, 0),
    });
    const grOutlineFontFamilyReader reader("", "");
    ASSERT_EQ(reader.num_families(), 1);
    const grOutlineFontListElement& sans = reader.family(0);
    EXPECT_EQ(sans.normal_font(), "Sans Medium");
    EXPECT_EQ(sans.bold_font(), "Sans Semibold");
    EXPECT_EQ(sans.italic_font(), "Sans Medium Italic");
    EXPECT_EQ(sans.bold_italic_font(), "Sans Black Italic");
    EXPECT_EQ(sans.language_name(), 204);
    for (const utString& metrics : {sans.normal_afm(), sans.bold_afm(), sans.italic_afm(), sans.bold_italic_afm()})
        EXPECT_TRUE(metrics.empty());
}

TEST(grOutlineFontFamilyReader, the_machine_itself_is_listed)
{
    const grOutlineFontFamilyReader reader("/usr/share/htmldoc/fonts", "/usr/share/htmldoc/fonts");
    // Seven characters of Western text and more are claimed by these; their full names come from their name tables.
    for (const char* family : {"DejaVu Sans", "Liberation Serif"})
        EXPECT_EQ(reader.char_set(ltTRUETYPE_FONT, family), 0) << family;
    const grOutlineFontListElement* sans = tsFind(reader, ltTRUETYPE_FONT, "Liberation Sans");
    ASSERT_NE(sans, nullptr) << "install fonts-liberation";
    EXPECT_EQ(sans->normal_font(), "Liberation Sans");
    EXPECT_EQ(sans->bold_font(), "Liberation Sans Bold");
    EXPECT_EQ(sans->italic_font(), "Liberation Sans Italic");
    EXPECT_EQ(sans->bold_italic_font(), "Liberation Sans Bold Italic");
    for (const char* family : {"Courier", "Helvetica", "Times", "Symbol"})
        EXPECT_EQ(reader.family_exists(ltADOBE_PFA_FONT, family), 1) << family;
    // Type 1 and PostScript-flavoured fonts of the system are no TrueType fonts.
    EXPECT_EQ(reader.family_exists(ltTRUETYPE_FONT, "Nimbus Sans"), 0);
}

namespace
{
utString the_asked_directory;
int the_times_asked = 0;

void find_fonts(const utString& directory, utStringutStringcoTable& fonts)
{
    the_asked_directory = directory;
    ++the_times_asked;
    fonts.set("Zeta", "/fonts/zeta.pfb");
    fonts.set("Alpha", "/fonts/alpha.pfb");
}

struct Finder
{
    Finder()
    {
        the_times_asked = 0;
        grOutlineFontFamilyReader::set_morvex_font_finder(find_fonts);
    }
    ~Finder() { grOutlineFontFamilyReader::set_morvex_font_finder(nullptr); }
};
}

TEST(grOutlineFontFamilyReader, own_fonts_come_from_the_finder_once_for_each_directory)
{
    const tsNoSystemFonts none;
    const Finder finder;
    grOutlineFontFamilyReader reader("", "");
    EXPECT_EQ(reader.add_morvex_fonts("/Own/Fonts"), 0);
    EXPECT_EQ(the_asked_directory, "/Own/Fonts");
    ASSERT_EQ(tsFamilies(reader), (Families{"4 Alpha", "4 Zeta"}));
    EXPECT_EQ(reader.family(0).normal_font(), "Alpha");
    EXPECT_EQ(reader.family(0).normal_afm(), "/fonts/alpha.pfb");
    EXPECT_EQ(reader.family(0).bold_available() + reader.family(0).italic_available(), 0);
    EXPECT_EQ(reader.char_set(ltMORVEX_FONT, "Alpha"), 0);

    EXPECT_EQ(reader.add_morvex_fonts("/own/FONTS"), 0);
    EXPECT_EQ(the_times_asked, 1);
    EXPECT_EQ(reader.add_morvex_fonts("/own/more"), 0);
    EXPECT_EQ(the_times_asked, 2);
    EXPECT_EQ(reader.num_families(), 2) << "families that exist are not added again";
}

TEST(grOutlineFontFamilyReader, without_a_finder_a_directory_can_be_given_again)
{
    const tsNoSystemFonts none;
    grOutlineFontFamilyReader reader("", "");
    EXPECT_EQ(reader.add_morvex_fonts("/own"), 0);
    EXPECT_EQ(reader.num_families(), 0);
    const Finder finder;
    EXPECT_EQ(reader.add_morvex_fonts("/own"), 0);
    EXPECT_EQ(reader.num_families(), 2);
}
