#pragma once

#include "grMultiTool.h"
#include "grViewIndexTool.h"

/// Steps to the previous or next saved camera of each view that belongs with the one under the pointer, as well as of
/// that one. All glide together; a view without such a camera stays as it is.
class GR_EXPORT grMultiViewIndexTool : public grMultiTool<grViewIndexTool, std::optional<grCameraInterpolation>>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiViewIndexTool, grTwiddleTool);

protected:
    int find_ways(const gwKeyEvent& event) override;
    void move_views(double share) const override;
};
