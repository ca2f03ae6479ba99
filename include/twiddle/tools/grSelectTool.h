#pragma once

#include "grStdViewTwiddleTool.h"

#include <vector>

struct dgPickHit;

/// Selects what lies under the pointer, at the press; where nothing does, nothing is selected any more. The hooks are
/// told of the hits, and then, if they name a selection, of its change.
///
/// Arguments, joined by commas: "add" or "toggle" for what is selected already, as grSelectMode; "all" for what lies
/// behind, too. A click without a hit that adds or toggles changes nothing.
class GR_EXPORT grSelectTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grSelectTool, grTwiddleTool);

protected:
    /// Takes hits in the target view over into the hooks' selection.
    void take(const std::vector<dgPickHit>& hits);
    /// Whether the arguments hold a word.
    bool argument(const char* word) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
