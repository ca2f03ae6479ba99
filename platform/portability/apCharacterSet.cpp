#include "apCharacterSet.h"

namespace
{
// Bits of the field of code pages in the OS/2 table, as OpenType numbers them, in the order in which they stand for a
// font: what makes a font an East Asian one counts more than the Latin letters beside.
const struct
{
    int bit, character_set;
} known_pages[] = {{31, 2},  {17, 128}, {18, 134}, {19, 129}, {20, 136}, {0, 0},   {2, 204}, {1, 238},
                   {3, 161}, {4, 162},  {5, 177},  {6, 178},  {7, 186},  {8, 163}, {16, 222}};
constexpr int western = 0;
}

// All four East Asian pages at once say that the font serves all of the world rather than one of them.
int ap_character_set(unsigned long code_pages)
{
    const unsigned long east_asian = 0xful << 17;
    if ((code_pages & east_asian) == east_asian && (code_pages & 1))
        return western;
    for (const auto& page : known_pages)
        if (code_pages >> page.bit & 1)
            return page.character_set;
    return apCHARACTER_SET_UNSPECIFIED;
}
