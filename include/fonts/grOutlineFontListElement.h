#pragma once

#include "grExport.h"
#include "grOutlineFontStyle.h"
#include "ltFontType.h"
#include "utTypeID.h"

#include <iosfwd>

/// One family of outline fonts: where its four styles come from, and where they are installed.
///
/// What the names of fonts and metrics files mean depends on the type. Types 2 and 3: paths of font files and of AFM
/// files. Type 1: full face names, and no metrics. Type 4: the normal font is the family name again, and the normal
/// metrics file is the font finder's file. A style that does not exist has empty names.
class GR_EXPORT grOutlineFontListElement
{
public:
    /// A family that is not installed. language is a Windows character set, -1 when unknown.
    grOutlineFontListElement(ltFontType type, int language, const utString& family, const grOutlineFontStyles& fonts,
                             const grOutlineFontStyles& afms);
    virtual ~grOutlineFontListElement();

    ltFontType font_type() const { return the_font_type; }
    /// The language's number, a Windows character set, whatever the name of the query says.
    int language_name() const { return the_language; }
    const utString& family_name() const { return the_family_name; }

    const utString& font(grOutlineFontStyle style) const { return the_fonts[static_cast<std::size_t>(style)]; }
    /// The metrics file.
    const utString& afm(grOutlineFontStyle style) const { return the_afms[static_cast<std::size_t>(style)]; }
    int available(grOutlineFontStyle style) const { return !font(style).empty(); }

    const utString& normal_font() const { return font(grOUTLINE_FONT_NORMAL); }
    const utString& bold_font() const { return font(grOUTLINE_FONT_BOLD); }
    const utString& italic_font() const { return font(grOUTLINE_FONT_ITALIC); }
    const utString& bold_italic_font() const { return font(grOUTLINE_FONT_BOLD_ITALIC); }
    const utString& normal_afm() const { return afm(grOUTLINE_FONT_NORMAL); }
    const utString& bold_afm() const { return afm(grOUTLINE_FONT_BOLD); }
    const utString& italic_afm() const { return afm(grOUTLINE_FONT_ITALIC); }
    const utString& bold_italic_afm() const { return afm(grOUTLINE_FONT_BOLD_ITALIC); }

    int normal_available() const { return available(grOUTLINE_FONT_NORMAL); }
    int bold_available() const { return available(grOUTLINE_FONT_BOLD); }
    int italic_available() const { return available(grOUTLINE_FONT_ITALIC); }
    int bold_italic_available() const { return available(grOUTLINE_FONT_BOLD_ITALIC); }

    int family_installed() const { return the_family_installed; }
    /// Marks the family as installed in four slots of a renderer from index on.
    void family_installed(int index);
    void family_removed();
    /// The first of the four slots, -1 when the family is not installed.
    int renderer_index() const { return the_renderer_index; }

    virtual void print(std::ostream& os) const;

    UT_DECLARE_ROOT_TYPE(grOutlineFontListElement);

private:
    ltFontType the_font_type;
    int the_language;
    utString the_family_name;
    grOutlineFontStyles the_fonts;
    grOutlineFontStyles the_afms;
    int the_family_installed = 0;
    int the_renderer_index = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grOutlineFontListElement& element);
