#include "grOutlineFontListElement.h"

#include <ostream>

UT_DEFINE_TYPE(grOutlineFontListElement);

grOutlineFontListElement::grOutlineFontListElement(ltFontType type, int language, const utString& family,
                                                   const utString& normal_font, const utString& bold_font,
                                                   const utString& italic_font, const utString& bold_italic_font,
                                                   const utString& normal_afm, const utString& bold_afm,
                                                   const utString& italic_afm, const utString& bold_italic_afm)
    : the_font_type(type), the_language(language), the_family_name(family), the_normal_font(normal_font),
      the_bold_font(bold_font), the_italic_font(italic_font), the_bold_italic_font(bold_italic_font),
      the_normal_afm(normal_afm), the_bold_afm(bold_afm), the_italic_afm(italic_afm),
      the_bold_italic_afm(bold_italic_afm)
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
       << "  the_family_name is " << the_family_name << '\n'
       << "  the_normal_font is " << the_normal_font << '\n'
       << "  the_bold_font is " << the_bold_font << '\n'
       << "  the_italic_font is " << the_italic_font << '\n'
       << "  the_bold_italic_font is " << the_bold_italic_font << '\n'
       << "  the_normal_afm is " << the_normal_afm << '\n'
       << "  the_bold_afm is " << the_bold_afm << '\n'
       << "  the_italic_afm is " << the_italic_afm << '\n'
       << "  the_bold_italic_afm is " << the_bold_italic_afm << '\n'
       << "  the_family_installed is " << the_family_installed << '\n'
       << "  the_renderer_index is " << the_renderer_index << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grOutlineFontListElement& element)
{
    element.print(os);
    return os;
}
