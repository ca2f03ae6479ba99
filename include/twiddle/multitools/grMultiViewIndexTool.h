#pragma once

#include "grOtherViews.h"
#include "grViewIndexTool.h"

#include <vector>

/// Steps to the previous or next saved camera of each view that belongs with the one under the pointer, as well as of
/// that one. All glide together; a view without such a camera stays as it is.
class GR_EXPORT grMultiViewIndexTool : public grViewIndexTool
{
public:
    using grViewIndexTool::grViewIndexTool;

    UT_DECLARE_TYPE(grMultiViewIndexTool, grTwiddleTool);

    using grStdViewTwiddleTool::save_camera;
    /// Saves the cameras of the other views and then the target's, when the flags allow it.
    void save_camera() const override;

protected:
    int find_ways(const gwKeyEvent& event) override;
    void move_views(double share) const override;

private:
    grOtherViews the_others;
    std::vector<Way> the_ways; // of the others
};
