#pragma once

#include "giPlane.h"
#include "giPoint2.h"
#include "grStdViewTwiddleTool.h"

#include <optional>

class grSection;

/// Cuts a view open, by the section that the hooks name, and moves the plane with the pointer as long as it is held.
///
/// A press switches the section on, across the axis along which the view is seen most or where it was before. A
/// release without a move switches one off that was on. The arguments "x", "y" and "z" cut across that axis; one that
/// is so already goes off. With "flip" the other side stays, and "off" switches off.
///
/// A drag along the normal as it is seen moves the plane by the same way; where the normal points to the eye, up moves
/// it away. The plane stays where the view has something to cut.
class GR_EXPORT grSectionTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    UT_DECLARE_TYPE(grSectionTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    grSection* section() const;
    giPoint2 the_start_point; // device
    std::optional<giPlane> the_start_plane;
    int the_was_on = 0; // and goes off unless it is moved
    int the_moved = 0;
};
