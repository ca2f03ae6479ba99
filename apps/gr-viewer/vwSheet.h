#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"
#include "giBox2.h"

#include <string>

class dgRenderer;

/// A sheet of paper with a frame, a field for each of three views, and one for a title. Its structure lies in the xy
/// plane; a unit is a millimetre, the origin its lower left corner.
class vwSheet
{
public:
    vwSheet();

    dgStructure& root() const { return *the_root; }

    static constexpr int n_fields = 3;
    /// The sheet itself, and its fields: a large one at the left, two at the right.
    static giBox2 box();
    static giBox2 field(int i);

    /// Writes a title with the font of a slot of the renderer, as large as its field allows; once.
    void title(const std::string& text, const dgRenderer& renderer, int slot);

private:
    dgRef<dgClientStructure> the_root;
};
