#pragma once

#include "coDList.h"
#include "coTable.h"
#include "grExport.h"
#include "grOutlineFontStyle.h"
#include "ltFontType.h"
#include "utTypeID.h"

#include <iosfwd>
#include <memory>
#include <string_view>

class dgRenderer;
class grOutlineFontListElement;

using utStringcoDList = coDList<utString>;
using utStringutStringcoTable = coTable<utString, utString>;
using grOutlineFontListElementcoDListPtr = coDList<grOutlineFontListElement*>;

/// Outcome of reading a font list.
enum grOutlineFontFileStatus
{
    grOUTLINE_FONT_FILE_READ = 0,
    grOUTLINE_FONT_FILE_BAD = 1 ///< a bad line, whose number is reported, or a file that cannot be opened
};

/// Outcome of installing a family.
enum grOutlineFontInstallStatus
{
    grOUTLINE_FONT_INSTALLED = 0,          ///< or installed already
    grOUTLINE_FONT_NO_FAMILY = 1,          ///< no such family
    grOUTLINE_FONT_FILE_NOT_LOADED = 2,    ///< a font's or metrics file is missing or cannot be read
    grOUTLINE_FONT_CONTENTS_NOT_LOADED = 4 ///< a file's contents are damaged, or do not belong together
};

/// Fills a table of family names and font files with the application's own fonts of a directory.
using grMorvexFontFinder = void (*)(const utString& directory, utStringutStringcoTable& fonts);

/// The outline font families that an application can offer, and their installation in text-font slots of a renderer.
///
/// Families come from a table of well-known PostScript Type 1 families, whose files are looked up when the reader is
/// made; from the operating system, which names its TrueType families; from font lists; and from the application's font
/// finder. A family is told by its type and name together, upper and lower case being different; where there are two,
/// the first counts.
///
/// A font list holds one family a line, "#" in the first column starting a comment:
///
///     adobe_pfb, Nimbus Sans, NimbusSans-Regular, NimbusSans-Bold, NimbusSans-Italic, NimbusSans-BoldItalic
///
/// The keyword "adobe_pfa" stands for files with the ending .pfa, "adobe_pfb" for .pfb; "truetype" is followed by a
/// language number and looks for .pfb files too. Names may be empty, but not all four. Blanks and tabs around names do
/// not count; the last name runs to the end of the line. Lines are at most 4096 characters long.
class GR_EXPORT grOutlineFontFamilyReader
{
public:
    /// Builds the list from the table and the operating system. Both paths are lists of directories, parted by ";" and,
    /// off Windows, ":".
    grOutlineFontFamilyReader(const utString& font_path, const utString& metrics_path);
    virtual ~grOutlineFontFamilyReader();

    /// Adds the families of a font list that are new and have files. line becomes the number, counted from 1, of a line
    /// that is bad, else -1; what came before that line stays added.
    grOutlineFontFileStatus append_font_list(const utString& file, int& line);

    /// Adds the application's own fonts of a directory, unless it was given before in whatever case. Without a font
    /// finder nothing happens, and the directory may be given again.
    grOutlineFontFileStatus add_morvex_fonts(const utString& directory);

    /// Null takes the finder away.
    static void set_morvex_font_finder(grMorvexFontFinder finder);
    /// The same for a finder that gets data with each call, in place of any other.
    static void set_morvex_font_finder(void (*finder)(const utString& directory, utStringutStringcoTable& fonts,
                                                      void* data),
                                       void* data);

    /// Puts a family into the first four free slots in a row of a renderer: regular, bold, italic, bold italic. Styles
    /// that do not exist become copies of the first slot. A family that is installed already stays as it is, also when
    /// that was in another renderer. A font that cannot be loaded ends the installation: the family is not installed,
    /// and slots that were filled stay filled.
    grOutlineFontInstallStatus install_family(ltFontType type, const utString& family, dgRenderer* renderer);

    /// Clears the four slots of an installed family.
    void remove_family(ltFontType type, const utString& family, dgRenderer* renderer);

    int num_families() const;
    /// Name and type of family i, counted from 0.
    utString family_name(int i, ltFontType& type) const;
    /// Family i, counted from 0, which the reader owns.
    const grOutlineFontListElement& family(int i) const { return *the_families[i]; }
    int family_exists(ltFontType type, const utString& family) const;
    int family_installed(ltFontType type, const utString& family) const;
    /// First slot of an installed family, else -1.
    int family_renderer_index(ltFontType type, const utString& family) const;
    /// The family's language, a Windows character set; -1 when it is unknown or there is no such family.
    int char_set(ltFontType type, const utString& family) const;

    // Called back while the faces of the operating system are listed. Names are in the platform's narrow encoding.
    void add_truetype_family(const char* name);
    void add_truetype_styles(const char* full_name, int weight, int italic);
    void add_truetype_language(int character_set);

    virtual void print(std::ostream& os) const;

    UT_DECLARE_ROOT_TYPE(grOutlineFontFamilyReader);

protected:
    grOutlineFontFamilyReader(const grOutlineFontFamilyReader&);
    grOutlineFontFamilyReader& operator=(const grOutlineFontFamilyReader&);

    /// A new element with the files of the four stems, or null when none was found or the family exists already.
    std::unique_ptr<grOutlineFontListElement> create_list_element(ltFontType type, int language, const utString& family,
                                                                  const grOutlineFontStyles& stems);

    /// Full names of a stem's font and metrics files. Both are empty unless both were found.
    void find_font(const utString& stem, ltFontType type, utString& font, utString& metrics) const;

    /// Loads the font of a style and puts it into a slot.
    grOutlineFontInstallStatus add_font(dgRenderer* renderer, const grOutlineFontListElement& element,
                                        grOutlineFontStyle style, int slot);

    /// Puts the font of one slot into another one as well.
    void copy_font(dgRenderer* renderer, int from, int to);

    /// Takes the text before the first comma, and the comma, off rest. Answers 0 when there is no comma.
    static int read_to_comma(std::string_view& rest, utString& text);

    /// Without leading and trailing blanks and tabs.
    static utString trim_string(std::string_view text);

private:
    grOutlineFontListElement* find_family(ltFontType type, const utString& family) const;
    void append(std::unique_ptr<grOutlineFontListElement> element);
    void add_builtin_families();
    void add_system_families();

    grOutlineFontListElementcoDListPtr the_families; // owned
    utString the_metrics_path;
    utString the_font_path;
    utStringcoDList the_morvex_directories;
    utStringcoDList the_truetype_families;

    // Of the family whose faces are being enumerated.
    grOutlineFontStyles the_styles;
    int the_style_language = -1;

    static grMorvexFontFinder the_morvex_font_finder;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grOutlineFontFamilyReader& reader);
GR_EXPORT std::ostream& operator<<(std::ostream& os, grOutlineFontFileStatus status);
GR_EXPORT std::ostream& operator<<(std::ostream& os, grOutlineFontInstallStatus status);
