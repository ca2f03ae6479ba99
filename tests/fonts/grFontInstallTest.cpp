#include "tsFontFolder.h"

#include "dgGlyphOutline.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTextFont.h"
#include "dgTraceWindow.h"

#include <gtest/gtest.h>

namespace
{
class FontInstall : public testing::Test
{
protected:
    void take_slot(int slot) { the_renderer.set_text_font(new dgTextFont("", ""), slot); }
    dgTextFont* slot(int i) const { return the_renderer.get_text_font(i); }
    int taken_slots() const
    {
        int n = 0;
        for (int i = 0; i < 20; ++i)
            n += slot(i) != nullptr;
        return n;
    }

    const tsNoSystemFonts the_system;
    tsFontFolder the_folder;
    dgTraceWindow the_window{10, 10};
    dgRenderer the_renderer{&the_window, &the_window};
};

const char* const helvetica_stems[] = {"Helvetica", "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique"};
}

TEST_F(FontInstall, four_styles_go_into_four_slots)
{
    for (const char* stem : helvetica_stems)
        the_folder.link(stem, stem);
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &the_renderer), 0);
    for (int i = 0; i < 4; ++i)
    {
        ASSERT_NE(slot(i), nullptr) << i;
        EXPECT_EQ(slot(i)->load_status(), dgTEXT_FONT_LOADED);
        for (int j = 0; j < i; ++j)
            EXPECT_NE(slot(i), slot(j));
    }
    EXPECT_EQ(taken_slots(), 4);
    EXPECT_EQ(reader.family_installed(ltADOBE_PFA_FONT, "Helvetica"), 1);
    EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Helvetica"), 0);
    // Bold letters are wider: 0.722 and 0.667 em in the metrics of these fonts.
    const auto width = [&](int i) { return slot(i)->advance(slot(i)->glyph(U'A')); };
    EXPECT_NEAR(width(0), 0.667, 1e-9);
    EXPECT_NEAR(width(1), 0.722, 1e-9);
    EXPECT_NEAR(width(2), 0.667, 1e-9);
    EXPECT_NEAR(width(3), 0.722, 1e-9);
}

TEST_F(FontInstall, the_only_style_is_loaded_for_itself_and_copied_for_the_others)
{
    the_folder.link("courb", "Courier-Bold");
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Courier", &the_renderer), 0);
    ASSERT_EQ(taken_slots(), 4);
    EXPECT_NE(slot(1), slot(0)) << "the bold slot is a second load of the bold font";
    EXPECT_EQ(slot(2), slot(0));
    EXPECT_EQ(slot(3), slot(0));
}

TEST_F(FontInstall, installing_again_changes_nothing)
{
    the_folder.link("Symbol", "Symbol");
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &the_renderer), 0);
    const dgTextFont* const font = slot(0);
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &the_renderer), 0);
    EXPECT_EQ(taken_slots(), 4);
    EXPECT_EQ(slot(0), font);
    // Deliberate: that a family is installed is not known by renderer.
    dgRenderer other(&the_window, &the_window);
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &other), 0);
    EXPECT_EQ(other.get_text_font(0), nullptr);
}

TEST_F(FontInstall, the_first_four_free_slots_in_a_row_are_taken)
{
    the_folder.link("Symbol", "Symbol");
    const struct
    {
        std::vector<int> taken;
        int first;
    } cases[] = {{{}, 0}, {{0, 5}, 1}, {{0, 3}, 4}, {{3, 7, 11}, 12}, {{4}, 0}, {{1000000}, 0}};
    for (const auto& c : cases)
    {
        dgRenderer renderer(&the_window, &the_window);
        for (const int slot : c.taken)
            renderer.set_text_font(new dgTextFont("", ""), slot);
        grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
        EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &renderer), 0);
        EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Symbol"), c.first);
        for (int i = 0; i < 4; ++i)
            EXPECT_NE(renderer.get_text_font(c.first + i), nullptr);
    }
}

TEST_F(FontInstall, removing_clears_the_slots_for_others)
{
    for (const char* stem : helvetica_stems)
        the_folder.link(stem, stem);
    the_folder.link("Symbol", "Symbol");
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &the_renderer), 0);
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &the_renderer), 0);
    EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Symbol"), 4);
    reader.remove_family(ltADOBE_PFB_FONT, "Helvetica", &the_renderer);
    EXPECT_EQ(taken_slots(), 8) << "a family of another type";
    reader.remove_family(ltADOBE_PFA_FONT, "Helvetica", &the_renderer);
    EXPECT_EQ(taken_slots(), 4);
    EXPECT_EQ(slot(0), nullptr);
    EXPECT_EQ(reader.family_installed(ltADOBE_PFA_FONT, "Helvetica"), 0);
    EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Helvetica"), -1);
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &the_renderer), 0);
    EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Helvetica"), 0);
}

TEST_F(FontInstall, a_family_that_is_not_there_has_a_status)
{
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &the_renderer), 1);
    EXPECT_EQ(taken_slots(), 0);
}

TEST_F(FontInstall, a_font_that_cannot_be_loaded_is_a_status_and_installs_no_family)
{
    const struct
    {
        const char* name;
        std::string normal_pfa, normal_afm, bold_pfa;
        int status, slots_filled;
    } cases[] = {
        {"damaged font", "%!PS-AdobeFont-1.0: nothing more", tsFileText(tsHtmldocFont("Helvetica.afm")), "", 4, 0},
        {"damaged metrics", tsFileText(tsHtmldocFont("Helvetica.pfa")), "nonsense", "", 4, 0},
        {"metrics of another font", tsFileText(tsHtmldocFont("Helvetica.pfa")),
         tsFileText(tsHtmldocFont("Dingbats.afm")), "", 4, 0},
        {"damaged bold font behind a good one", tsFileText(tsHtmldocFont("Helvetica.pfa")),
         tsFileText(tsHtmldocFont("Helvetica.afm")), "nonsense", 4, 1},
    };
    for (const auto& c : cases)
    {
        tsFontFolder folder;
        folder.write("Helvetica.pfa", c.normal_pfa);
        folder.write("Helvetica.afm", c.normal_afm);
        if (!c.bold_pfa.empty())
        {
            folder.write("Helvetica-Bold.pfa", c.bold_pfa);
            folder.write("Helvetica-Bold.afm", c.normal_afm);
        }
        dgRenderer renderer(&the_window, &the_window);
        grOutlineFontFamilyReader reader(folder.path(), folder.path());
        EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &renderer), c.status) << c.name;
        EXPECT_EQ(reader.family_installed(ltADOBE_PFA_FONT, "Helvetica"), 0) << c.name;
        EXPECT_EQ(renderer.get_text_font(0) != nullptr, c.slots_filled) << c.name;
        EXPECT_EQ(renderer.get_text_font(1), nullptr) << c.name;
        // What was filled stays filled, and a second attempt starts behind it.
        folder.write("Helvetica.pfa", tsFileText(tsHtmldocFont("Helvetica.pfa")));
        folder.write("Helvetica.afm", tsFileText(tsHtmldocFont("Helvetica.afm")));
        folder.write("Helvetica-Bold.pfa", tsFileText(tsHtmldocFont("Helvetica-Bold.pfa")));
        EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Helvetica", &renderer), 0) << c.name;
        EXPECT_EQ(reader.family_renderer_index(ltADOBE_PFA_FONT, "Helvetica"), c.slots_filled) << c.name;
    }
}

TEST_F(FontInstall, a_font_whose_file_has_gone_is_a_status)
{
    the_folder.write("Symbol.pfa", tsFileText(tsHtmldocFont("Symbol.pfa")));
    the_folder.link_file("Symbol.afm", tsHtmldocFont("Symbol.afm"));
    grOutlineFontFamilyReader reader(the_folder.path(), the_folder.path());
    std::filesystem::remove((the_folder / "Symbol.pfa").str());
    EXPECT_EQ(reader.install_family(ltADOBE_PFA_FONT, "Symbol", &the_renderer), 2);
    EXPECT_EQ(taken_slots(), 0);
}

TEST(FontInstallSystem, faces_are_found_by_their_full_names)
{
    const auto face = [](const char* family, const char* full_name, int weight, int italic, const std::string& file)
    { return apSystemFace{family, full_name, weight, italic, 204, apFONT_TYPE_TRUETYPE, file, 0}; };
    const apSystemFontsOverride system({
        face("Sans", "Sans Book", 400, 0, tsDejavuFont("DejaVuSans.ttf")),
        face("Sans", "Sans Heavy", 700, 0, tsDejavuFont("DejaVuSans-Bold.ttf")),
        face("Vantor Own", "VanTor own", 400, 0, tsDejavuFont("DejaVuSansMono.ttf")),
        face("Gone", "Gone", 400, 0, "/nowhere/gone.ttf"),
    });
    dgTraceWindow window(10, 10);
    dgRenderer renderer(&window, &window);
    grOutlineFontFamilyReader reader("", "");
    EXPECT_EQ(reader.install_family(ltTRUETYPE_FONT, "Sans", &renderer), 0);
    EXPECT_EQ(reader.install_family(ltTRUETYPE_FONT, "Vantor Own", &renderer), 0);
    EXPECT_EQ(reader.install_family(ltTRUETYPE_FONT, "Gone", &renderer), 2);
    EXPECT_EQ(renderer.get_text_font(2), renderer.get_text_font(0));
    EXPECT_NE(renderer.get_text_font(1), renderer.get_text_font(0));
    EXPECT_EQ(renderer.get_text_font(0)->language(), 204);
    EXPECT_EQ(renderer.get_text_font(0)->own_font(), 0);
    EXPECT_EQ(renderer.get_text_font(4)->own_font(), 1) << "the name begins with vantor, whatever its case";
    EXPECT_EQ(reader.family_renderer_index(ltTRUETYPE_FONT, "Vantor Own"), 4);
}

namespace
{
utString the_own_file;
void find_own(const utString&, utStringutStringcoTable& fonts)
{
    fonts.set("Workshop", the_own_file);
}
}

TEST_F(FontInstall, an_own_family_is_read_from_the_file_that_the_finder_names)
{
    grOutlineFontFamilyReader reader("", "");
    the_own_file = tsDejavuFont("DejaVuSans.ttf");
    grOutlineFontFamilyReader::set_morvex_font_finder(find_own);
    EXPECT_EQ(reader.add_morvex_fonts("/anywhere"), 0);
    grOutlineFontFamilyReader::set_morvex_font_finder(nullptr);
    EXPECT_EQ(reader.install_family(ltMORVEX_FONT, "Workshop", &the_renderer), 0);
    ASSERT_EQ(taken_slots(), 4);
    EXPECT_NE(slot(0)->glyph(U'A'), dgTextFont::missing_glyph);
    EXPECT_EQ(slot(0)->language(), 0);
    for (int i = 1; i < 4; ++i)
        EXPECT_EQ(slot(i), slot(0));
}

namespace
{
// The protected parts, as a derived reader sees them.
class OpenReader : public grOutlineFontFamilyReader
{
public:
    OpenReader() : grOutlineFontFamilyReader("", "") {}
    using grOutlineFontFamilyReader::add_font;
};
}

TEST(FontInstallSystem, a_missing_italic_face_is_the_normal_one_slanted)
{
    const apSystemFontsOverride system({
        {"Sans", "Sans", 400, 0, 0, apFONT_TYPE_TRUETYPE, tsDejavuFont("DejaVuSans.ttf"), 0},
    });
    dgTraceWindow window(10, 10);
    dgRenderer renderer(&window, &window);
    OpenReader reader;
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_NORMAL, 0), 0);
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_ITALIC, 1), 0);
    const dgTextFont& upright = *renderer.get_text_font(0);
    const dgTextFont& slanted = *renderer.get_text_font(1);
    dgGlyphOutline straight, leaning;
    upright.outline(upright.glyph(U'I'), straight);
    slanted.outline(slanted.glyph(U'I'), leaning);
    ASSERT_EQ(straight.contours.size(), 1u);
    for (std::size_t i = 0; i < 4; ++i)
    {
        // Lines at right angles to the baseline lean by a fifth of their height.
        const giPoint2 &from = straight.contours[0][i], &to = leaning.contours[0][i];
        EXPECT_NEAR(to.x(), from.x() + 0.2 * from.y(), 1e-9);
        EXPECT_EQ(to.y(), from.y());
    }
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_BOLD, 2), 2) << "a face without a name";
}
