#pragma once

#include "grStdViewTwiddleTool.h"

#include <vector>

class giBox2;
class giPoint2;
struct dgPickHit;

/// Selects what lies under the pointer, at the press; where nothing does, nothing is selected any more. The hooks are
/// told of the hits, and then, if they name a selection, of its change.
///
/// Arguments, joined by commas: "add" or "toggle" for what is selected already, as grSelectMode; "all" for what lies
/// behind, too; "triangles" for single triangles in place of parts. A click without a hit that adds or toggles changes
/// nothing.
class GR_EXPORT grSelectTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grSelectTool, grTwiddleTool);

protected:
    /// Takes hits in the target view over into the hooks' selection.
    void take(const std::vector<dgPickHit>& hits);
    /// Picks in the target view, which is there, what the arguments ask for, and takes it: at a position, or in a box,
    /// in device pixels.
    void take_at(const giPoint2& position);
    void take_in(const giBox2& device_box);
    /// Whether the arguments hold a word.
    bool argument(const char* word) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
