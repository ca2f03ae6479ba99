#include "grSectionTool.h"

#include "dgView.h"
#include "grSection.h"
#include "grStdTwiddleHooks.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <cmath>

UT_DEFINE_TYPE(grSectionTool, grStdViewTwiddleTool);

namespace
{
constexpr double least_slope = 0.3; // of a normal against the line of sight for drags along it
constexpr double least_pixels = 2;  // less is no move

// World units by which a plane moves for a drag in pixels.
double distance_of(const dgView& view, const giPlane& plane, const giVector2& drag)
{
    const giVector3 normal = view.camera().orientation().transform(plane.normal());
    const double pixels = view.camera().pixels_per_unit(), slope = std::hypot(normal.x(), normal.y());
    if (slope < least_slope)
        return (normal.z() > 0 ? -drag.y() : drag.y()) / pixels;
    return (drag.x() * normal.x() + drag.y() * normal.y()) / (slope * slope * pixels);
}

// The axis that an argument names, or none.
std::optional<gi_Axis> axis_of(const utString& args)
{
    if (args == "x")
        return gi_X_AXIS;
    if (args == "y")
        return gi_Y_AXIS;
    if (args == "z")
        return gi_Z_AXIS;
    return {};
}
}

// The hooks may have closed the view.
grSection* grSectionTool::section() const
{
    return target_view() ? hooks()->identify_section(*target_view()) : nullptr;
}

void grSectionTool::start_twiddle(const gwKeyEvent& event)
{
    if (!start_view_twiddle(event))
        return;
    grSection* section = this->section();
    if (!section)
        return;
    const std::optional<gi_Axis> axis = axis_of(args());
    const std::optional<giPlane> before = section->plane();
    if (args() == "flip")
        section->flip();
    else if (args() == "off")
        section->plane({});
    else if (axis && !(before && std::abs(before->normal()[*axis]) == 1))
        section->across(*target_view(), *axis);
    else if (!before)
        section->resume(*target_view());
    else
        the_was_on = 1;
    the_start_point = giPoint2(event.x(), event.y());
    the_start_plane = section->plane();
    if (!(before == the_start_plane))
        refresh_views();
}

void grSectionTool::mouse_event(const gwMouseEvent& event)
{
    grSection* section = this->section();
    const giVector2 drag = giPoint2(event.x(), event.y()) - the_start_point;
    if (state() != grTWID_TWIDDLING || !section || !the_start_plane || (!the_moved && drag.length() < least_pixels))
        return;
    the_moved = 1;
    section->plane(the_start_plane);
    section->move(*target_view(), distance_of(*target_view(), *the_start_plane, drag));
    twiddle_mouse(event);
    refresh_views();
}

void grSectionTool::end_twiddle(const gwKeyEvent& event)
{
    if (grSection* section = this->section(); section && the_was_on && !the_moved)
        section->plane({});
    end_view_twiddle(event);
}
