#include "grOutlineFontListElement.h"

#include <ostream>

UT_DEFINE_TYPE(grOutlineFontListElement);

namespace
{
constexpr const char* style_names[] = {"normal", "bold", "italic", "bold_italic"};
}

grOutlineFontListElement::grOutlineFontListElement(ltFontType type, int language, const utString& family,
                                                   const grOutlineFontStyles& fonts, const grOutlineFontStyles& afms)
    : the_font_type(type), the_language(language), the_family_name(family), the_fonts(fonts), the_afms(afms)
{}

grOutlineFontListElement::~grOutlineFontListElement() = default;

void grOutlineFontListElement::family_installed(int index)
{
    the_family_installed = 1;
    the_renderer_index = index;
}

void grOutlineFontListElement::family_removed()
{
    the_family_installed = 0;
    the_renderer_index = -1;
}

void grOutlineFontListElement::print(std::ostream& os) const
{
    os << "grOutlineFontListElement {\n"
       << "  the_font_type is " << static_cast<int>(the_font_type) << '\n'
       << "  the_language is " << the_language << '\n'
       << "  the_family_name is " << the_family_name << '\n';
    for (std::size_t i = 0; i < the_fonts.size(); ++i)
        os << "  the_" << style_names[i] << "_font is " << the_fonts[i] << '\n';
    for (std::size_t i = 0; i < the_afms.size(); ++i)
        os << "  the_" << style_names[i] << "_afm is " << the_afms[i] << '\n';
    os << "  the_family_installed is " << the_family_installed << '\n'
       << "  the_renderer_index is " << the_renderer_index << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grOutlineFontListElement& element)
{
    element.print(os);
    return os;
}
