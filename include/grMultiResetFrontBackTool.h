#pragma once

#include "grOtherViews.h"
#include "grResetFrontBackTool.h"

/// Resets the clipping planes of the views that belong with the one under the pointer, as well as that one's.
class GR_EXPORT grMultiResetFrontBackTool : public grResetFrontBackTool
{
public:
    using grResetFrontBackTool::grResetFrontBackTool;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grMultiResetFrontBackTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grMultiResetFrontBackTool* ut_dynamic_cast(const grTwiddleTool* tool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
