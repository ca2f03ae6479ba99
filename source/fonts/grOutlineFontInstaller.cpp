#include "grOutlineFontInstaller.h"

#include "grOutlineFontListElement.h"

#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTextFont.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace
{
constexpr grOutlineFontStyle styles[] = {grOUTLINE_FONT_NORMAL, grOUTLINE_FONT_BOLD, grOUTLINE_FONT_ITALIC,
                                         grOUTLINE_FONT_BOLD_ITALIC};
constexpr int n_styles = static_cast<int>(std::size(styles));

dgRef<dgTextFont> load_face(const grOutlineFontListElement& family, grOutlineFontStyle style)
{
    constexpr std::string_view own_prefix = "vantor";
    const int italic = style == grOUTLINE_FONT_ITALIC || style == grOUTLINE_FONT_BOLD_ITALIC;
    utString name = family.font(style);
    if (style == grOUTLINE_FONT_ITALIC && name.empty())
        name = family.normal_font();
    const int own = name.equal_case_blind(utString(own_prefix), static_cast<int>(own_prefix.size()));
    return new dgTextFont(name, family.language_name(), italic, own);
}

// Null for a type that nobody knows.
dgRef<dgTextFont> load(const grOutlineFontListElement& family, grOutlineFontStyle style)
{
    switch (family.font_type())
    {
    case ltTRUETYPE_FONT: return load_face(family, style);
    case ltADOBE_PFA_FONT:
    case ltADOBE_PFB_FONT: return new dgTextFont(family.font(style), family.afm(style));
    // There is one style alone.
    case ltMORVEX_FONT: return new dgTextFont(family.normal_font(), family.normal_afm(), family.language_name());
    }
    return nullptr;
}
}

grOutlineFontInstallStatus grOutlineFontInstaller::install(grOutlineFontListElement& family)
{
    const int first = first_free_slots();
    const auto available = [&](grOutlineFontStyle style) { return family.available(style); };
    if (const auto style = std::find_if(std::begin(styles), std::end(styles), available); style != std::end(styles))
        if (const grOutlineFontInstallStatus status = add(family, *style, first))
            return status;
    for (const grOutlineFontStyle style : {grOUTLINE_FONT_BOLD, grOUTLINE_FONT_ITALIC, grOUTLINE_FONT_BOLD_ITALIC})
    {
        if (!available(style))
            copy(first, first + style);
        else if (const grOutlineFontInstallStatus status = add(family, style, first + style))
            return status;
    }
    family.family_installed(first);
    return grOUTLINE_FONT_INSTALLED;
}

void grOutlineFontInstaller::remove(grOutlineFontListElement& family)
{
    for (int i = 0; i < n_styles; ++i)
        the_renderer.set_text_font(nullptr, family.renderer_index() + i);
    family.family_removed();
}

grOutlineFontInstallStatus grOutlineFontInstaller::add(const grOutlineFontListElement& family, grOutlineFontStyle style,
                                                       int slot)
{
    const dgRef<dgTextFont> font = load(family, style);
    if (!font)
        return grOUTLINE_FONT_INSTALLED;
    switch (font->load_status())
    {
    case dgTEXT_FONT_NO_FILE: return grOUTLINE_FONT_FILE_NOT_LOADED;
    case dgTEXT_FONT_BAD_FILE: return grOUTLINE_FONT_CONTENTS_NOT_LOADED;
    case dgTEXT_FONT_LOADED: break;
    }
    the_renderer.set_text_font(font.get(), slot);
    return grOUTLINE_FONT_INSTALLED;
}

void grOutlineFontInstaller::copy(int from, int to)
{
    the_renderer.set_text_font(the_renderer.get_text_font(from), to);
}

int grOutlineFontInstaller::first_free_slots() const
{
    for (int first = 0;; ++first)
    {
        int free = 0;
        while (free < n_styles && !the_renderer.get_text_font(first + free))
            ++free;
        if (free == n_styles)
            return first;
    }
}
