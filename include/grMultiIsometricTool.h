#pragma once

#include "grIsometricTool.h"
#include "grOtherViews.h"

/// Shows the views that belong with the one under the pointer isometrically, as well as that one.
class GR_EXPORT grMultiIsometricTool : public grIsometricTool
{
public:
    using grIsometricTool::grIsometricTool;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grMultiIsometricTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grMultiIsometricTool* ut_dynamic_cast(const grTwiddleTool* tool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void do_action(const gwKeyEvent& event) override;

private:
    grOtherViews the_others;
};
