#pragma once

#include "giPoint2.h"
#include "grStdStructureTwiddleTool.h"

/// Scales a structure about its pivot by vertical drag: up enlarges. Half the height of the renderer is a factor of 10,
/// which is also the limit; back at the press point the structure is as it was.
class GR_EXPORT grScaleStructureTool : public grStdStructureTwiddleTool
{
public:
    using grStdStructureTwiddleTool::grStdStructureTwiddleTool;

    UT_DECLARE_TYPE(grScaleStructureTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

private:
    giPoint2 the_start_point; // device
};
