#include "tsFontFolder.h"
#include "tsTable.h"

#include "dgRenderer.h"
#include "dgTextFont.h"
#include "dgTraceWindow.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <regex>
#include <sstream>

namespace
{
utString the_found_file;
int the_times_asked = 0;

void find_own(const utString&, utStringutStringcoTable& fonts)
{
    ++the_times_asked;
    fonts.set("Zeta", the_found_file);
    fonts.set("Alpha", the_found_file);
}

// Plays a script on a folder of fonts, a system of given faces, a reader and a renderer. Commands end with ";", "~" is
// a blank inside a word:
//     font STEM [AS]          links STEM.pfa and STEM.afm to those of another font of htmldoc, Courier or AS
//     link NAME FILE          to a file named h:, u:, m: or d: for htmldoc, URW fonts, URW metrics and DejaVu
//     copy NAME FILE, text NAME TEXT, folder NAME, remove NAME
//     face FAMILY FULL_NAME [WEIGHT ITALIC CHARACTER_SET BITS FILE]      of the system
//     reader [FONTS METRICS]  made on the folder, or on two folders inside it; needed before what follows
//     list LINE [LINE...]     reads a font list, "@" being the folder: its status and line
//     finder 0 or 1, own DIRECTORY, asked         of the application's own fonts
//     install TYPE FAMILY, free TYPE FAMILY, take SLOT, renderer
//     show                    the families: type, name, language and the files of each style
//     slots                   one letter for each font, "-" for none
//     width SLOT              of the letter A in thousandths of an em
class Stage
{
public:
    Stage() { the_system.emplace(the_faces); }
    ~Stage() { grOutlineFontFamilyReader::set_morvex_font_finder(nullptr); }

    std::string play(const std::string& script)
    {
        std::istringstream commands(script);
        for (std::string command; std::getline(commands, command, ';');)
        {
            the_words.str(command);
            the_words.clear();
            carry_out(word());
        }
        return the_record.str();
    }

private:
    std::string word()
    {
        std::string text;
        the_words >> text;
        std::replace(text.begin(), text.end(), '~', ' ');
        return text;
    }
    int number(int otherwise = 0)
    {
        const std::string text = word();
        return text.empty() ? otherwise : std::stoi(text);
    }
    static std::string file(const std::string& name)
    {
        const std::string base = name.size() > 2 ? name.substr(2) : "";
        if (name.starts_with("h:"))
            return tsHtmldocFont(base);
        if (name.starts_with("u:"))
            return tsUrwFont(base);
        if (name.starts_with("m:"))
            return tsUrwMetrics(base);
        return name.starts_with("d:") ? tsDejavuFont(base) : name;
    }

    void carry_out(const std::string& command)
    {
        if (command == "font")
        {
            const std::string stem = word(), as = word();
            the_folder.link(stem, as.empty() ? "Courier" : as);
        }
        else if (command == "link" || command == "copy" || command == "text")
        {
            const std::string name = word(), target = word();
            std::filesystem::remove((the_folder / name).str());
            if (command == "link")
                the_folder.link_file(name, file(target));
            else
                the_folder.write(name, command == "copy" ? tsFileText(file(target)) : target);
        }
        else if (command == "folder")
            the_folder.make_folder(word());
        else if (command == "remove")
            std::filesystem::remove((the_folder / word()).str());
        else if (command == "face")
        {
            apSystemFace face{word(), word(), number(400), number(), number(), number(apFONT_TYPE_TRUETYPE), "", 0};
            face.file = file(word());
            the_faces.push_back(face);
        }
        else if (command == "reader")
        {
            the_system.reset();
            the_system.emplace(the_faces);
            const std::string fonts = word(), metrics = word();
            const auto path = [&](const std::string& name)
            { return name.empty() ? the_folder.path() : utString("/nowhere;") + (the_folder / name); };
            the_reader.emplace(path(fonts), path(metrics));
        }
        else if (command == "list")
        {
            std::string text;
            for (std::string line = word(); !line.empty(); line = word())
                text += std::regex_replace(line, std::regex("@"), the_folder.path().str()) + '\n';
            int line = 77;
            const int status = the_reader->append_font_list(the_folder.write("list", text), line);
            the_record << status << ' ' << line << "; ";
        }
        else if (command == "finder")
            grOutlineFontFamilyReader::set_morvex_font_finder(number() ? find_own : nullptr);
        else if (command == "own")
            the_record << int{the_reader->add_morvex_fonts(word())} << "; ";
        else if (command == "asked")
            the_record << std::exchange(the_times_asked, 0) << "; ";
        else if (command == "install" || command == "free")
        {
            const auto type = static_cast<ltFontType>(number());
            const std::string family = word();
            if (command == "free")
                the_reader->remove_family(type, family, &*the_renderer);
            else
                the_record << int{the_reader->install_family(type, family, &*the_renderer)} << ' ';
            the_record << the_reader->family_installed(type, family) << the_reader->family_renderer_index(type, family)
                       << "; ";
        }
        else if (command == "take")
            the_renderer->set_text_font(new dgTextFont("", ""), number());
        else if (command == "renderer")
            the_renderer.emplace(&the_window, &the_window);
        else if (command == "show")
            show();
        else if (command == "slots")
            slots();
        else if (command == "width")
        {
            const dgTextFont& font = *the_renderer->get_text_font(number());
            the_record << std::lround(font.advance(font.glyph(U'A')) * 1000) << "; ";
        }
        else if (!command.empty())
            ADD_FAILURE() << "no command " << command;
    }
    std::string short_name(const utString& path) const
    {
        const std::string folder = the_folder.path().str();
        std::string name = path.str().starts_with(folder) ? path.str().substr(folder.size() + 1) : path.str();
        std::replace(name.begin(), name.end(), '\\', '/');
        return name;
    }
    void show()
    {
        for (int i = 0; i < the_reader->num_families(); ++i)
        {
            ltFontType type{};
            const utString name = the_reader->family_name(i, type);
            const grOutlineFontListElement& family = the_reader->family(i);
            the_record << type << ' ' << name << ' ' << family.language_name();
            for (int style = 0; style < 4; ++style)
            {
                const auto s = static_cast<grOutlineFontStyle>(style);
                the_record << ',' << short_name(family.font(s)) << (family.afm(s).empty() ? "" : "+")
                           << short_name(family.afm(s));
            }
            the_record << "; ";
        }
    }
    void slots()
    {
        std::map<const dgTextFont*, char> names;
        std::string text;
        for (int i = 0; i < 16; ++i)
            if (const dgTextFont* font = the_renderer->get_text_font(i))
                text += names.emplace(font, static_cast<char>('a' + names.size())).first->second;
            else
                text += '-';
        the_record << text.substr(0, text.find_last_not_of('-') + 1) << "; ";
    }

    tsFontFolder the_folder;
    std::vector<apSystemFace> the_faces;
    std::optional<apSystemFontsOverride> the_system;
    dgTraceWindow the_window{10, 10};
    std::optional<dgRenderer> the_renderer{std::in_place, &the_window, &the_window};
    std::optional<grOutlineFontFamilyReader> the_reader;
    std::istringstream the_words;
    std::ostringstream the_record;
};

}

TEST(grOutlineFontFamilyReader, lists_and_installs_what_a_script_says)
{
    the_found_file = "/own.pfb";
    the_times_asked = 0;
    for (const auto& row : ts_table(TS_TABLES "families.table", "families"))
        EXPECT_EQ(Stage().play(row[1]), row[2]) << row[0];
}

TEST(grOutlineFontFamilyReader, own_fonts_and_slanted_faces_have_their_marks)
{
    class OpenReader : public grOutlineFontFamilyReader
    {
    public:
        OpenReader() : grOutlineFontFamilyReader("", "") {}
        using grOutlineFontFamilyReader::add_font;
    };
    const std::string file = tsDejavuFont("DejaVuSans.ttf");
    const apSystemFontsOverride system({{"Own", "VanTor own", 400, 0, 204, apFONT_TYPE_TRUETYPE, file, 0}});
    dgTraceWindow window(10, 10);
    dgRenderer renderer(&window, &window);
    OpenReader reader;
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_NORMAL, 0), 0);
    // A missing italic face is the normal one slanted: lines at right angles to the baseline lean by a fifth.
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_ITALIC, 1), 0);
    EXPECT_EQ(reader.add_font(&renderer, reader.family(0), grOUTLINE_FONT_BOLD, 2), 2) << "a face without a name";
    const dgTextFont &upright = *renderer.get_text_font(0), &slanted = *renderer.get_text_font(1);
    EXPECT_EQ(upright.own_font(), 1) << "the name begins with vantor, whatever its case";
    EXPECT_EQ(upright.language(), 204);
    const giBox2 straight = tsInk(upright, U'I'), leaning = tsInk(slanted, U'I');
    EXPECT_NEAR(leaning.high().x(), straight.high().x() + 0.2 * straight.high().y(), 1e-9);
    EXPECT_EQ(leaning.high().y(), straight.high().y());
    // The application's own fonts: the file stands where the metrics do.
    the_found_file = file;
    grOutlineFontFamilyReader::set_morvex_font_finder(find_own);
    EXPECT_EQ(reader.add_morvex_fonts("/anywhere"), 0);
    grOutlineFontFamilyReader::set_morvex_font_finder(nullptr);
    EXPECT_EQ(reader.install_family(ltMORVEX_FONT, "Zeta", &renderer), 0);
    EXPECT_NE(renderer.get_text_font(2)->glyph(U'A'), unsigned{dgTextFont::missing_glyph});
    EXPECT_EQ(renderer.get_text_font(5), renderer.get_text_font(2));
}

TEST(grOutlineFontFamilyReader, lines_of_a_list_hold_up_to_4096_characters)
{
    const tsNoSystemFonts none;
    tsFontFolder folder;
    folder.link("a");
    grOutlineFontFamilyReader reader(folder.path(), folder.path());
    int line = 77, families = 0;
    for (const char* end : {"", "\n", "\r\n"})
    {
        // "adobe_pfa, " and " , a, , ," have 11 and 9 characters.
        std::string longest = "adobe_pfa, " + std::string(4096 - 20, static_cast<char>('x' + families)) + " , a, , ,";
        EXPECT_EQ(reader.append_font_list(folder.write("good", longest + end), line), 0);
        EXPECT_EQ(reader.num_families(), ++families);
        EXPECT_EQ(reader.append_font_list(folder.write("bad", " " + longest + end), line), 1);
        EXPECT_EQ(line, 1);
    }
    EXPECT_EQ(reader.append_font_list(folder.write("notes", "#" + std::string(100000, '-')), line), 0);
    for (const utString& missing : {folder / "none", folder.path()})
    {
        line = 77;
        EXPECT_EQ(reader.append_font_list(missing, line), 1);
        EXPECT_EQ(line, -1);
    }
}

TEST(grOutlineFontFamilyReader, reads_the_fonts_of_the_machine)
{
    grOutlineFontFamilyReader reader("/usr/share/htmldoc/fonts;/usr/share/fonts/X11/Type1",
                                     "/usr/share/htmldoc/fonts;/usr/share/fonts/type1/urw-base35");
    const grOutlineFontListElement* sans = tsFind(reader, ltTRUETYPE_FONT, "Liberation Sans");
    ASSERT_NE(sans, nullptr) << "install fonts-liberation";
    EXPECT_EQ(sans->bold_italic_font(), "Liberation Sans Bold Italic");
    EXPECT_EQ(sans->language_name(), 0);
    EXPECT_EQ(reader.family_exists(ltADOBE_PFA_FONT, "Times"), 1);
    EXPECT_EQ(reader.family_exists(ltTRUETYPE_FONT, "Nimbus Sans"), 0) << "is no TrueType font";
    const int before = reader.num_families();
    int line = 0, n_fonts = 0;
    ASSERT_EQ(reader.append_font_list(GR_SHARE "/fonts/urw-base35.fonts", line), 0) << "line " << line;
    // The 35 fonts: eight families of four styles and three of one.
    EXPECT_EQ(reader.num_families() - before, 11) << "install fonts-urw-base35";
    for (int i = before; i < reader.num_families(); ++i)
        for (const auto style :
             {grOUTLINE_FONT_NORMAL, grOUTLINE_FONT_BOLD, grOUTLINE_FONT_ITALIC, grOUTLINE_FONT_BOLD_ITALIC})
            n_fonts += reader.family(i).available(style);
    EXPECT_EQ(n_fonts, 35);
}
