#pragma once

#include "grOutlineFontFamilyReader.h"

/// Puts the fonts of families into the text-font slots of one renderer, and takes them out.
class grOutlineFontInstaller
{
public:
    explicit grOutlineFontInstaller(dgRenderer& renderer) : the_renderer(renderer) {}

    /// Fills the first four free slots in a row and marks the family as installed there. A font that cannot be loaded
    /// ends it: the slots filled before stay filled, and the family is not installed.
    grOutlineFontInstallStatus install(grOutlineFontListElement& family);
    /// Clears the slots of an installed family.
    void remove(grOutlineFontListElement& family);

    /// Loads the font of one style into a slot.
    grOutlineFontInstallStatus add(const grOutlineFontListElement& family, grOutlineFontStyle style, int slot);
    /// Puts the font of one slot into another one as well.
    void copy(int from, int to);

private:
    int first_free_slots() const;

    dgRenderer& the_renderer;
};
