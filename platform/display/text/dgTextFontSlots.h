#pragma once

#include "dgExport.h"
#include "dgRef.h"
#include "dgTextFont.h"

#include <map>

/// Fonts by the numbers of their slots, from 0 without a limit.
class DG_EXPORT dgTextFontSlots
{
public:
    /// The font of a slot; null when it is free.
    dgTextFont* get(int slot) const;

    /// References the font in place of the one before; null clears the slot.
    void set(dgTextFont* font, int slot);

private:
    std::map<int, dgRef<dgTextFont>> the_fonts;
};
