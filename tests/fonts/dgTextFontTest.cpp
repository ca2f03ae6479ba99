#include "dgTextFont.h"

#include "tsFontFolder.h"

#include "dgAfmWidths.h"
#include "dgGlyphOutline.h"
#include "dgRef.h"
#include "dgText.h"
#include "dgTextLayout.h"
#include "dgTextStyle.h"
#include "giBox2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace
{
dgRef<dgTextFont> helvetica(const utString& metrics = tsHtmldocFont("Helvetica.afm"))
{
    return new dgTextFont(tsHtmldocFont("Helvetica.pfa"), metrics);
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}
}

TEST(dgTextFont, advances_and_kerning_are_those_of_the_metrics_file)
{
    const std::string afm = tsFileText(tsHtmldocFont("Helvetica.afm"));
    tsFontFolder folder;
    const utString changed =
        folder.write("changed.afm", replaced(replaced(afm, "C 65 ; WX 667 ; N A", "C 65 ; WX 1234.5 ; N A"),
                                             "KPX A V -75", "KPX A V -321"));
    const dgRef<dgTextFont> font = helvetica(), other = helvetica(changed);
    ASSERT_EQ(font->load_status(), dgTEXT_FONT_LOADED);
    ASSERT_EQ(other->load_status(), dgTEXT_FONT_LOADED);
    const unsigned a = font->glyph(U'A'), v = font->glyph(U'V');
    EXPECT_NEAR(font->advance(a), 0.667, 1e-9);
    EXPECT_NEAR(font->kerning(a, v), -0.075, 1e-9);
    EXPECT_NEAR(other->advance(a), 1.2345, 1e-9);
    EXPECT_NEAR(other->kerning(a, v), -0.321, 1e-9);
    EXPECT_NEAR(other->advance(v), font->advance(v), 1e-9);
}

TEST(dgTextFont, outlines_are_in_ems_from_the_baseline)
{
    const dgRef<dgTextFont> font = helvetica();
    // The line of the letter H in the metrics: B 77 0 646 729.
    const std::string afm = tsFileText(tsHtmldocFont("Helvetica.afm"));
    std::istringstream line(afm.substr(afm.find(" N H ; B ") + 9, 40));
    double box[4] = {};
    for (double& value : box)
        line >> value;
    const giBox2 h = tsInk(*font, U'H');
    EXPECT_NEAR(h.low().x(), box[0] / 1000, 1e-3);
    EXPECT_NEAR(h.low().y(), box[1] / 1000, 1e-3);
    EXPECT_NEAR(h.high().x(), box[2] / 1000, 1e-3);
    EXPECT_NEAR(h.high().y(), box[3] / 1000, 1e-3);
}

TEST(dgTextFont, damaged_font_files_have_a_status_and_never_a_crash)
{
    const struct
    {
        std::string font, metrics;
    } sources[] = {{tsHtmldocFont("Courier.pfa"), tsHtmldocFont("Courier.afm")},
                   {tsUrwFont("Z003-MediumItalic.pfb"), tsUrwMetrics("Z003-MediumItalic.afm")},
                   {tsDejavuFont("DejaVuSansMono.ttf"), ""}};
    tsFontFolder folder;
    for (const auto& source : sources)
    {
        const std::string whole = tsFileText(source.font);
        for (int piece = 0; piece < 12; ++piece)
        {
            std::string text = whole;
            const std::size_t at = whole.size() * static_cast<std::size_t>(piece) / 12;
            if (piece % 2 == 0)
                text.resize(at);
            else
                std::fill_n(text.begin() + static_cast<std::ptrdiff_t>(at), 40, '\x5a');
            const dgRef<dgTextFont> font(new dgTextFont(folder.write("font", text), source.metrics));
            // What is left of a font may do; each character is then a glyph of it or the frame.
            EXPECT_NE(font->load_status(), dgTEXT_FONT_NO_FILE) << source.font << ' ' << piece;
            for (char32_t c = U'!'; c < U'\x7f'; ++c)
            {
                dgGlyphOutline outline;
                font->outline(font->glyph(c), outline);
                EXPECT_TRUE(font->advance(font->glyph(c)) < 10);
                EXPECT_TRUE(font->glyph(c) != dgTextFont::missing_glyph || outline.contours.size() == 2);
            }
        }
    }
    EXPECT_EQ(dgRef<dgTextFont>(new dgTextFont(folder.write("font", ""), ""))->load_status(), dgTEXT_FONT_BAD_FILE);
}

TEST(dgTextFont, damaged_metrics_files_have_a_status_and_never_a_crash)
{
    const std::string afm = tsFileText(tsHtmldocFont("Helvetica.afm"));
    tsFontFolder folder;
    const auto status = [&](const std::string& text) { return helvetica(folder.write("m.afm", text))->load_status(); };
    EXPECT_EQ(status(afm), dgTEXT_FONT_LOADED);
    EXPECT_EQ(status(""), dgTEXT_FONT_BAD_FILE);
    EXPECT_EQ(status("StartFontMetrics 3.0\n"), dgTEXT_FONT_BAD_FILE);
    EXPECT_EQ(status(afm.substr(0, afm.size() / 20)), dgTEXT_FONT_BAD_FILE);
    EXPECT_EQ(status(std::string(10000, '\xff')), dgTEXT_FONT_BAD_FILE);
    EXPECT_EQ(status(tsFileText(tsHtmldocFont("Dingbats.afm"))), dgTEXT_FONT_BAD_FILE);
    EXPECT_EQ(helvetica(folder / "none")->load_status(), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(helvetica(folder.path())->load_status(), dgTEXT_FONT_NO_FILE) << "a folder";
}

TEST(dgTextFont, missing_files_and_faces_are_told_from_damaged_ones)
{
    const tsNoSystemFonts none;
    const auto status = [](dgTextFont* font) { return dgRef<dgTextFont>(font)->load_status(); };
    EXPECT_EQ(status(new dgTextFont("/nowhere/x.pfa", "")), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(status(new dgTextFont("", "")), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(status(new dgTextFont("Arial", 0, 0, 0)), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(status(new dgTextFont("", 0, 0, 0)), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(status(new dgTextFont("Family", "/nowhere/x.pfb", 0)), dgTEXT_FONT_NO_FILE);
    EXPECT_EQ(status(new dgTextFont(tsHtmldocFont("Courier.afm"), "")), dgTEXT_FONT_BAD_FILE);
}

TEST(dgTextFont, symbol_fonts_answer_to_the_codes_of_their_own_character_set)
{
    const dgRef<dgTextFont> symbol(new dgTextFont(tsHtmldocFont("Symbol.pfa"), tsHtmldocFont("Symbol.afm")));
    ASSERT_EQ(symbol->load_status(), dgTEXT_FONT_LOADED);
    EXPECT_EQ(symbol->glyph(U'a'), symbol->glyph(U'\u03B1')) << "alpha";
    EXPECT_NE(symbol->glyph(U'a'), unsigned{dgTextFont::missing_glyph});
    EXPECT_EQ(symbol->glyph(U'\u4E00'), unsigned{dgTextFont::missing_glyph});
}

TEST(dgTextLayout, glyphs_follow_on_each_other_by_advance_kerning_factor_and_spacing)
{
    const dgRef<dgTextFont> font = helvetica();
    dgTextStyle style;
    style.font = font.get();
    style.height = 10;
    style.width_factor = 2;
    style.spacing = 0.5;
    const std::vector<dgPlacedGlyph> placed = dg_lay_out_text("AV\nV", style);
    ASSERT_EQ(placed.size(), 3u);
    EXPECT_NEAR(placed[0].origin.x(), 0, 1e-9);
    EXPECT_NEAR(placed[1].origin.x(), (0.667 - 0.075) * 20 + 5, 1e-9);
    EXPECT_NEAR(placed[2].origin.x(), 0, 1e-9) << "no kerning across lines";
    EXPECT_NEAR(placed[2].origin.y(), -12, 1e-9);
}

TEST(dgTextLayout, text_is_read_as_utf_8_and_byte_by_byte_where_it_is_none)
{
    const dgTextStyle style; // without a font, every character is a frame of 0.6 em
    EXPECT_EQ(dg_lay_out_text("a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", style).size(), 4u);
    EXPECT_EQ(dg_lay_out_text("a\xe9z", style).size(), 3u);
    EXPECT_EQ(dg_lay_out_text(" \t\r\n", style).size(), 0u);
}

TEST(dgTextLayout, the_box_holds_all_lines_in_the_plane_of_the_text)
{
    dgTextStyle style;
    style.height = 10;
    style.horizontal = dgTEXT_CENTRE;
    style.vertical = dgTEXT_MIDDLE;
    style.baseline = giVector3(0, 1, 0);
    style.up = giVector3(0, 0, 1);
    const dgRef<dgText> text(new dgText(giPoint3(1, 2, 3), "ab\nabc"));
    const giBox3 box = dg_text_box(*text, style);
    // The longer line is 3 * 0.6 * 10 wide; two lines are 22 high.
    EXPECT_EQ(box.low().x(), 1);
    EXPECT_EQ(box.high().x(), 1);
    EXPECT_NEAR(box.low().y(), 2 - 9, 1e-9);
    EXPECT_NEAR(box.high().y(), 2 + 9, 1e-9);
    EXPECT_NEAR(box.low().z(), 3 - 11, 1e-9);
    EXPECT_NEAR(box.high().z(), 3 + 11, 1e-9);
    text->extent(box);
    EXPECT_NEAR(text->bounding_box().high().y(), 11, 1e-9);
}

TEST(dgAfmWidths, reads_the_section_of_glyphs_alone)
{
    std::istringstream text("StartFontMetrics 4.1\r\n"
                            "C 1 ; WX 1 ; N early ;\r\n"
                            "StartCharMetrics 4\r\n"
                            "C 65 ; WX 722 ; N A ; B 0 0 1 1 ; L i ii ;\r\n"
                            "CH <20> ; W0X 250.5 ; N space ;\r\n"
                            "C 66 ; N widthless ;\r\n"
                            "nonsense ; ; ;;\r\n"
                            "EndCharMetrics\r\n"
                            "C 2 ; WX 2 ; N late ;\r\n");
    std::vector<dgAfmWidth> widths;
    EXPECT_EQ(dg_read_afm_widths(text, widths), 1);
    ASSERT_EQ(widths.size(), 2u);
    EXPECT_EQ(widths[0].glyph_name, "A");
    EXPECT_EQ(widths[0].width, 722);
    EXPECT_EQ(widths[1].glyph_name, "space");
    EXPECT_EQ(widths[1].width, 250.5);
    std::istringstream other("%!PS\nStartCharMetrics\n");
    EXPECT_EQ(dg_read_afm_widths(other, widths), 0);
}
