#pragma once

#include "giPoint2.h"
#include "giXform3.h"
#include "grStdStructureTwiddleTool.h"

/// Turns a structure about its pivot.
///
/// Without arguments the pointer rolls a ball around the pivot, of 0.4 times the smaller side of the renderer. The
/// arguments "x_axis", "y_axis", "z_axis" and "xyz_axis" turn about that axis of the view in proportion to the travel,
/// as the tool that turns a view does: one turn for the height of the renderer. What is near the eye follows the
/// pointer.
class GR_EXPORT grRotateStructureTool : public grStdStructureTwiddleTool
{
public:
    using grStdStructureTwiddleTool::grStdStructureTwiddleTool;

    UT_DECLARE_TYPE(grRotateStructureTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

private:
    giXform3 turn_in_view(const giPoint2& point, const giPoint3& pivot_view) const;

    giPoint2 the_last_point; // device
    giXform3 the_turned;     // since the press, world
};
