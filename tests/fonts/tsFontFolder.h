#pragma once

#include "grOutlineFontFamilyReader.h"

#include "apSystemFontsOverride.h"
#include "giBox2.h"
#include "grOutlineFontListElement.h"
#include "tsFolder.h"

#include <string>
#include <vector>

class dgTextFont;

/// Font files of the packages htmldoc-common, fonts-urw-base35 and fonts-dejavu-core.
std::string tsHtmldocFont(const std::string& name);
std::string tsUrwFont(const std::string& name);
std::string tsUrwMetrics(const std::string& name);
std::string tsDejavuFont(const std::string& name);

/// The bytes of a font that no system has: DejaVu Sans under another name of 11 characters.
std::string tsRenamedFont(const std::string& name);

std::string tsFileText(const std::string& file);

/// A folder with fonts.
class tsFontFolder : public tsFolder
{
public:
    utString path() const { return tsFolder::path(); }
    utString operator/(const std::string& name) const { return tsFolder::operator/(name); }

    /// Puts a real font of htmldoc-common, with its metrics, under another stem.
    void link(const std::string& stem, const std::string& htmldoc_stem = "Courier");
    void link_file(const std::string& name, const std::string& target);
    utString write(const std::string& name, const std::string& text) { return tsFolder::write(name, text); }
    void make_folder(const std::string& name);
};

/// A system without a single font.
class tsNoSystemFonts
{
public:
    tsNoSystemFonts() : the_override({}) {}

private:
    apSystemFontsOverride the_override;
};

/// The first family of a type and name, or null.
const grOutlineFontListElement* tsFind(const grOutlineFontFamilyReader& reader, ltFontType type, const char* family);

/// The box of a character's outline, in ems.
giBox2 tsInk(const dgTextFont& font, char32_t character);
