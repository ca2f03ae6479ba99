#pragma once

#include "grMoveFrontBackTool.h"
#include "grMultiTool.h"

/// Moves the clipping planes of the views that belong with the one under the pointer together with that one's: each by
/// the same share of the distance that its own planes had at the press.
class GR_EXPORT grMultiMoveFrontBackTool : public grMultiTool<grMoveFrontBackTool, grFrontBackPlanes>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiMoveFrontBackTool, grTwiddleTool);

protected:
    using grMoveFrontBackTool::move_planes;
    void move_planes(const gwMouseEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
};
