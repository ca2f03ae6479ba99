// The part of grOutlineFontFamilyReader that puts fonts into the slots of a renderer.
#include "grOutlineFontFamilyReader.h"

#include "grOutlineFontListElement.h"

#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTextFont.h"

#include <ostream>

namespace
{
constexpr int n_styles = 4;

int available(const grOutlineFontListElement& element, grOutlineFontStyle style)
{
    switch (style)
    {
    case grOUTLINE_FONT_NORMAL: return element.normal_available();
    case grOUTLINE_FONT_BOLD: return element.bold_available();
    case grOUTLINE_FONT_ITALIC: return element.italic_available();
    case grOUTLINE_FONT_BOLD_ITALIC: return element.bold_italic_available();
    }
    return 0;
}

const utString& font(const grOutlineFontListElement& element, grOutlineFontStyle style)
{
    switch (style)
    {
    case grOUTLINE_FONT_NORMAL: return element.normal_font();
    case grOUTLINE_FONT_BOLD: return element.bold_font();
    case grOUTLINE_FONT_ITALIC: return element.italic_font();
    case grOUTLINE_FONT_BOLD_ITALIC: return element.bold_italic_font();
    }
    return element.normal_font();
}

const utString& metrics(const grOutlineFontListElement& element, grOutlineFontStyle style)
{
    switch (style)
    {
    case grOUTLINE_FONT_NORMAL: return element.normal_afm();
    case grOUTLINE_FONT_BOLD: return element.bold_afm();
    case grOUTLINE_FONT_ITALIC: return element.italic_afm();
    case grOUTLINE_FONT_BOLD_ITALIC: return element.bold_italic_afm();
    }
    return element.normal_afm();
}

dgRef<dgTextFont> load_face(const grOutlineFontListElement& element, grOutlineFontStyle style)
{
    const char own_prefix[] = "vantor";
    const int italic = style == grOUTLINE_FONT_ITALIC || style == grOUTLINE_FONT_BOLD_ITALIC;
    utString name = font(element, style);
    if (style == grOUTLINE_FONT_ITALIC && name.empty())
        name = element.normal_font();
    const int own = name.equal_case_blind(utString(own_prefix), static_cast<int>(sizeof own_prefix) - 1);
    return new dgTextFont(name, element.language_name(), italic, own);
}

int first_free_slots(const dgRenderer& renderer)
{
    for (int first = 0;; ++first)
    {
        int free = 0;
        while (free < n_styles && !renderer.get_text_font(first + free))
            ++free;
        if (free == n_styles)
            return first;
    }
}
}

grOutlineFontInstallStatus grOutlineFontFamilyReader::install_family(ltFontType type, const utString& family,
                                                                     dgRenderer* renderer)
{
    grOutlineFontListElement* element = find_family(type, family);
    if (!element)
        return grOUTLINE_FONT_NO_FAMILY;
    if (element->family_installed())
        return grOUTLINE_FONT_INSTALLED;

    const int first = first_free_slots(*renderer);
    constexpr grOutlineFontStyle styles[n_styles] = {grOUTLINE_FONT_NORMAL, grOUTLINE_FONT_BOLD, grOUTLINE_FONT_ITALIC,
                                                     grOUTLINE_FONT_BOLD_ITALIC};
    for (const grOutlineFontStyle style : styles)
    {
        if (!available(*element, style))
            continue;
        if (const grOutlineFontInstallStatus status = add_font(renderer, *element, style, first))
            return status;
        break;
    }
    for (const grOutlineFontStyle style : {grOUTLINE_FONT_BOLD, grOUTLINE_FONT_ITALIC, grOUTLINE_FONT_BOLD_ITALIC})
    {
        if (!available(*element, style))
            copy_font(renderer, first, first + style);
        else if (const grOutlineFontInstallStatus status = add_font(renderer, *element, style, first + style))
            return status;
    }
    element->family_installed(first);
    return grOUTLINE_FONT_INSTALLED;
}

void grOutlineFontFamilyReader::remove_family(ltFontType type, const utString& family, dgRenderer* renderer)
{
    grOutlineFontListElement* element = find_family(type, family);
    if (!element || !element->family_installed())
        return;
    for (int i = 0; i < n_styles; ++i)
        renderer->set_text_font(nullptr, element->renderer_index() + i);
    element->family_removed();
}

grOutlineFontInstallStatus grOutlineFontFamilyReader::add_font(dgRenderer* renderer,
                                                               const grOutlineFontListElement& element,
                                                               grOutlineFontStyle style, int slot)
{
    dgRef<dgTextFont> made;
    switch (element.font_type())
    {
    case ltTRUETYPE_FONT: made = load_face(element, style); break;
    case ltADOBE_PFA_FONT:
    case ltADOBE_PFB_FONT: made = new dgTextFont(font(element, style), metrics(element, style)); break;
    // There is one style alone.
    case ltMORVEX_FONT:
        made = new dgTextFont(element.normal_font(), element.normal_afm(), element.language_name());
        break;
    }
    if (!made)
        return grOUTLINE_FONT_INSTALLED;
    if (made->load_status() == dgTEXT_FONT_NO_FILE)
        return grOUTLINE_FONT_FILE_NOT_LOADED;
    if (made->load_status() == dgTEXT_FONT_BAD_FILE)
        return grOUTLINE_FONT_CONTENTS_NOT_LOADED;
    renderer->set_text_font(made.get(), slot);
    return grOUTLINE_FONT_INSTALLED;
}

void grOutlineFontFamilyReader::copy_font(dgRenderer* renderer, int from, int to)
{
    renderer->set_text_font(renderer->get_text_font(from), to);
}

std::ostream& operator<<(std::ostream& os, grOutlineFontInstallStatus status)
{
    switch (status)
    {
    case grOUTLINE_FONT_INSTALLED: return os << "grOUTLINE_FONT_INSTALLED";
    case grOUTLINE_FONT_NO_FAMILY: return os << "grOUTLINE_FONT_NO_FAMILY";
    case grOUTLINE_FONT_FILE_NOT_LOADED: return os << "grOUTLINE_FONT_FILE_NOT_LOADED";
    case grOUTLINE_FONT_CONTENTS_NOT_LOADED: return os << "grOUTLINE_FONT_CONTENTS_NOT_LOADED";
    }
    return os << "Unknown value for grOutlineFontInstallStatus";
}

std::ostream& operator<<(std::ostream& os, grOutlineFontStyle style)
{
    switch (style)
    {
    case grOUTLINE_FONT_NORMAL: return os << "grOUTLINE_FONT_NORMAL";
    case grOUTLINE_FONT_BOLD: return os << "grOUTLINE_FONT_BOLD";
    case grOUTLINE_FONT_ITALIC: return os << "grOUTLINE_FONT_ITALIC";
    case grOUTLINE_FONT_BOLD_ITALIC: return os << "grOUTLINE_FONT_BOLD_ITALIC";
    }
    return os << "Unknown value for grOutlineFontStyle";
}
