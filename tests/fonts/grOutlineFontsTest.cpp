#include "tsFontFolder.h"

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
        const std::string folder = the_folder.path().str() + "/";
        return path.str().starts_with(folder) ? path.str().substr(folder.size()) : path.str();
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

const std::string helvetica = "font Helvetica Helvetica; font Helvetica-Bold Helvetica-Bold; font Helvetica-Oblique "
                              "Helvetica-Oblique; font Helvetica-BoldOblique Helvetica-BoldOblique; ";
const std::string lists = "font a; font b; font c; font d; font e,~f; link a.pfb u:NimbusMonoPS-Regular.pfb; "
                          "link b.pfb u:NimbusMonoPS-Regular.pfb; reader; ";
const std::string symbol = "font Symbol Symbol; reader; ";

const struct
{
    const char* name;
    std::string script;
    const char* record;
} scripts[] = {
    // Families of the table.
    {"no files, no family", "reader; show; install 2 Helvetica; slots", "1 0-1; ; "},
    {"one file of four", "font courb; reader; show", "2 Courier 0,,courb.pfa+courb.afm,,; "},
    {"an earlier row wins, by type",
     "font cour; font Courier-Bold; font Symbol Symbol; link cour.pfb u:NimbusMonoPS-Regular.pfb; reader; show",
     "2 Courier 0,,Courier-Bold.pfa+Courier-Bold.afm,,; 2 Symbol 0,Symbol.pfa+Symbol.afm,,,; "
     "3 Courier 0,cour.pfb+cour.afm,,,; "},
    {"fonts and metrics have their own paths",
     "folder f; folder m; link f/Symbol.pfa h:Symbol.pfa; link m/Symbol.afm h:Symbol.afm; reader f m; show; "
     "reader m f; show",
     "2 Symbol 0,f/Symbol.pfa+m/Symbol.afm,,,; "},
    {"metrics under the bare stem come first", "font Symbol Symbol; link Symbol h:Symbol.afm; reader; show",
     "2 Symbol 0,Symbol.pfa+Symbol,,,; "},
    {"a folder is no file of metrics", "link Symbol.pfa h:Symbol.pfa; folder Symbol; reader; show", ""},

    // Families of the system.
    {"families are filtered by their first face",
     "face West West; face Symb Symb 400 0 2; face Jap Jap 400 0 128; face Kor Kor 400 0 129; face Simp Simp 400 0 "
     "134; "
     "face Trad Trad 400 0 136; face Cyr Cyr 400 0 204; face Greek Greek 400 0 161; face Bits Bits 400 0 0 1; "
     "face Mixed Mixed 400 0 0 6; face Courier Courier; face courier courier; face \xff bytes; "
     "face West Greek~face 400 0 161; reader; show",
     // The faces of a family are not filtered: the later one replaces the earlier one, but not its language.
     "1 West 0,Greek face,,,; 1 Symb 2,Symb,,,; 1 Jap 128,Jap,,,; 1 Kor 129,Kor,,,; 1 Simp 134,Simp,,,; "
     "1 Trad 136,Trad,,,; 1 Cyr 204,Cyr,,,; 1 Mixed 0,Mixed,,,; 1 courier 0,courier,,,; "},
    {"styles follow from weight and slant",
     "face S Light 300 0 204; face S Medium 500 0; face S Medium~Italic 500 1; face S Semibold 501; "
     "face S Black~Italic 900 1; reader; show",
     "1 S 204,Medium,Semibold,Medium Italic,Black Italic; "},

    // Families of the application.
    {"own fonts are asked for once in a directory",
     "reader; own /a; show; finder 1; own /A; own /a; asked; show; own /b; asked; own /B; asked; show",
     "0; 0; 0; 1; 4 Alpha 0,Alpha+/own.pfb,,,; 4 Zeta 0,Zeta+/own.pfb,,,; 0; 1; 0; 0; "
     "4 Alpha 0,Alpha+/own.pfb,,,; 4 Zeta 0,Zeta+/own.pfb,,,; "},

    // Font lists.
    {"good lines", lists + "list #~two  adobe_pfa,~One,~a,~b,~c,~d ~adobe_pfb~,~~Two~words~~,~,~b,,~\r; show",
     "0 -1; 2 One 0,a.pfa+a.afm,b.pfa+b.afm,c.pfa+c.afm,d.pfa+d.afm; 3 Two words 0,,b.pfb+b.afm,,; "},
    {"a line of a TrueType font looks for a binary Type 1 file", lists + "list truetype,~204,~Three,~a,,,; show",
     "0 -1; 1 Three 204,a.pfb+a.afm,,,; "},
    {"the last name runs to the end of the line", lists + "list adobe_pfa,One,,,,e,~f; show",
     "0 -1; 2 One 0,,,,e, f.pfa+e, f.afm; "},
    {"names may be absolute", "font a; reader none none; list adobe_pfa,One,@/a,,,; show",
     "0 -1; 2 One 0,a.pfa+a.afm,,,; "},
    {"no files, or a family that exists",
     lists + "list adobe_pfa,None,x,y,z, adobe_pfa,One,a,,, adobe_pfa,One,b,,,; show",
     "0 -1; 2 One 0,a.pfa+a.afm,,,; "},
    {"what stands before a bad line is added, what stands behind it is not",
     lists + "list adobe_pfa,One,a,,, adobe_pfb,Courier adobe_pfa,After,a,,,; show", "1 2; 2 One 0,a.pfa+a.afm,,,; "},
    {"a style is missing", lists + "list adobe_pfa,One,a,b,c", "1 1; "},
    {"no comma", lists + "list adobe_pfa", "1 1; "},
    {"unknown keyword", lists + "list opentype,One,a,b,c,d", "1 1; "},
    {"keyword in capitals", lists + "list ADOBE_PFA,One,a,b,c,d", "1 1; "},
    {"type without keyword", lists + "list morvex,One,a,b,c,d", "1 1; "},
    {"family empty", lists + "list adobe_pfa,~,a,b,c,d", "1 1; "},
    {"all styles empty", lists + "list adobe_pfa,One,,,,~", "1 1; "},
    {"no language", lists + "list truetype,One,a,b,c,d", "1 1; "},
    {"language with a tail", lists + "list truetype,12x,One,a,b,c,d", "1 1; "},
    {"language that is too large", lists + "list truetype,99999999999,One,a,b,c,d", "1 1; "},
    {"blanks alone", lists + "list #~a ~~~", "1 2; "},
    {"comment behind a blank", lists + "list ~#~adobe_pfa", "1 1; "},

    // Slots of a renderer.
    {"four styles go into four slots",
     helvetica + "reader; install 2 Helvetica; slots; width 0; width 1; width 2; width 3",
     "0 10; abcd; 667; 722; 667; 722; "},
    {"the bold slot of a bold font alone is a second load of it", "font courb; reader; install 2 Courier; slots",
     "0 10; abaa; "},
    {"installing again changes nothing, in another renderer either",
     symbol + "install 2 Symbol; install 2 Symbol; slots; renderer; install 2 Symbol; slots",
     "0 10; 0 10; aaaa; 0 10; ; "},
    {"slots 0 and 5 are taken", symbol + "take 0; take 5; install 2 Symbol; slots", "0 11; abbbbc; "},
    {"slots 0 and 3 are taken", symbol + "take 0; take 3; install 2 Symbol; slots", "0 14; a--bcccc; "},
    {"slots 3, 7 and 11 are taken", symbol + "take 3; take 7; take 11; install 2 Symbol; slots",
     "0 112; ---a---b---cdddd; "},
    {"removing clears the slots for others",
     helvetica + symbol +
         "install 2 Helvetica; install 2 Symbol; slots; free 3 Helvetica; slots; free 2 Helvetica; "
         "slots; install 2 Helvetica; slots",
     "0 10; 0 14; abcdeeee; 0-1; abcdeeee; 0-1; ----aaaa; 0 10; abcdeeee; "},
    {"a font whose file has gone",
     "copy Symbol.pfa h:Symbol.pfa; link Symbol.afm h:Symbol.afm; reader; remove Symbol.pfa; install 2 Symbol; slots",
     "2 0-1; ; "},
    {"a damaged font; a second attempt",
     "text Helvetica.pfa %!PS-AdobeFont-1.0:~no~more; link Helvetica.afm h:Helvetica.afm; reader; install 2 Helvetica; "
     "slots; link Helvetica.pfa h:Helvetica.pfa; install 2 Helvetica; slots",
     "4 0-1; ; 0 10; aaaa; "},
    {"damaged metrics",
     "link Helvetica.pfa h:Helvetica.pfa; text Helvetica.afm nonsense; reader; install 2 Helvetica; slots",
     "4 0-1; ; "},
    {"metrics of another font",
     "link Helvetica.pfa h:Helvetica.pfa; link Helvetica.afm h:Dingbats.afm; reader; install 2 Helvetica", "4 0-1; "},
    {"a damaged bold font behind a good one: its slot stays filled, a second attempt starts behind it",
     helvetica + "text Helvetica-Bold.pfa x; reader; install 2 Helvetica; slots; link Helvetica-Bold.pfa "
                 "h:Helvetica-Bold.pfa; install 2 Helvetica; slots",
     "4 0-1; a; 0 11; abcde; "},
    {"faces of the system by their full names",
     "face Sans Sans~Book 400 0 204 4 d:DejaVuSans.ttf; face Sans Sans~Heavy 700 0 204 4 d:DejaVuSans-Bold.ttf; "
     "face Gone Gone 400 0 0 4 /nowhere; reader; install 1 Sans; slots; install 1 Gone",
     "0 10; abaa; 2 0-1; "},
    {"an own font is read from its file, in one style", "finder 1; reader; own /a; asked; install 4 Zeta; slots",
     "0; 1; 2 0-1; ; "},
};
}

TEST(grOutlineFontFamilyReader, lists_and_installs_what_a_script_says)
{
    the_found_file = "/own.pfb";
    the_times_asked = 0;
    for (const auto& c : scripts)
        EXPECT_EQ(Stage().play(c.script), c.record) << c.name;
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
    EXPECT_NE(renderer.get_text_font(2)->glyph(U'A'), dgTextFont::missing_glyph);
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
