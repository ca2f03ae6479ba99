#pragma once

#include "grOtherViews.h"
#include "grSpaceballTool.h"

#include <vector>

/// Turns and moves the views that belong with the one under the pointer together with that one, each about its own
/// centre.
class GR_EXPORT grMultiSpaceballTool : public grSpaceballTool
{
public:
    using grSpaceballTool::grSpaceballTool;

    UT_DECLARE_TYPE(grMultiSpaceballTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void spaceball_event(const gwSpaceballEvent& event) override;

private:
    grOtherViews the_others;
    std::vector<giPoint3> the_centres; // of the others, world
};
