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

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grMultiMoveFrontBackTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grMultiMoveFrontBackTool* ut_dynamic_cast(const grTwiddleTool* tool);

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
