#pragma once

#include "grMoveFrontBackTool.h"
#include "grOtherViews.h"

#include <vector>

/// Moves the clipping planes of the views that belong with the one under the pointer together with that one's: each by
/// the same share of the distance that its own planes had at the press.
class GR_EXPORT grMultiMoveFrontBackTool : public grMoveFrontBackTool
{
public:
    using grMoveFrontBackTool::grMoveFrontBackTool;

    UT_DECLARE_TYPE(grMultiMoveFrontBackTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void move_planes(const gwMouseEvent& event) const override;
    void start_twiddle(const gwKeyEvent& event) override;
    using grMoveFrontBackTool::move_planes;

private:
    grOtherViews the_others;
    struct Planes
    {
        double front = 0, back = 0;
    };
    std::vector<Planes> the_start_planes; // of the others
};
