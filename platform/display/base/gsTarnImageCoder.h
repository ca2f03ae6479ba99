#pragma once

/// How identifiers are laid out in the 32 bits of a pixel: red in the lowest 8 bits, then green, blue and alpha.
struct gsTarnImageCoder
{
    /// Alpha of a pixel that covers all that is under it.
    static constexpr unsigned the_alpha_255 = 0xFF000000u;
};
