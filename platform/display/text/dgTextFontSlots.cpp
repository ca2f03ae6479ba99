#include "dgTextFontSlots.h"

dgTextFont* dgTextFontSlots::get(int slot) const
{
    const auto found = the_fonts.find(slot);
    return found == the_fonts.end() ? nullptr : found->second.get();
}

void dgTextFontSlots::set(dgTextFont* font, int slot)
{
    if (font)
        the_fonts[slot] = dgRef<dgTextFont>(font);
    else
        the_fonts.erase(slot);
}
