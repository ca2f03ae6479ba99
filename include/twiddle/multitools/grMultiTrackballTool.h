#pragma once

#include "grOtherViews.h"
#include "grTrackballTool.h"

#include <vector>

/// Turns the views that belong with the one under the pointer by the same steps as that one, each about its own centre,
/// and lets them spin on together.
class GR_EXPORT grMultiTrackballTool : public grTrackballTool
{
public:
    using grTrackballTool::grTrackballTool;

    UT_DECLARE_TYPE(grMultiTrackballTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void spin_action() const override;
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

private:
    grOtherViews the_others;
    std::vector<giPoint3> the_centres; // of the others, world
};
