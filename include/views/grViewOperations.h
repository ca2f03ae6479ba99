#pragma once

#include "dgEnums.h"
#include "giAngle.h"
#include "gi_Axis.h"
#include "grExport.h"

class dgView;
class giBox2;
class giPoint2;
class giPoint3;
class giVector2;
class giVector3;

/// The side that a view looks at its contents from.
enum grViewSide
{
    grVIEW_FRONT = 0,
    grVIEW_BACK = 1,
    grVIEW_LEFT = 2,
    grVIEW_RIGHT = 3,
    grVIEW_TOP = 4,
    grVIEW_BOTTOM = 5
};

/// What a button or a menu does to a view: the operations of the standard tools, without their dragging.
///
/// Each changes the camera at once and draws nothing. reset, isometric, fit, look, perspective and turn then tell those
/// who watch the camera, once, so that views locked to this one follow; callbacks may destroy the view. Zooming,
/// panning and clipping tell nobody. What lies on a sheet of paper keeps its place on the sheet. Positions, steps and
/// boxes are in device pixels.
class GR_EXPORT grViewOperations
{
public:
    grViewOperations() = delete;

    /// Looks along the z axis, with y up, and fits the view to its contents.
    static void reset(dgView& view);
    /// Looks along a diagonal of the axes, so that all three show alike, and fits the view to its contents.
    static void isometric(dgView& view);
    /// Fits the view to its contents and keeps the direction in which it looks.
    static void fit(dgView& view);
    /// Looks at the contents from a side, fitted to them. With z up, the front is seen along the y axis, and x points
    /// to the right; with y up it is seen against the z axis with x to the right, and with x up along the z axis with y
    /// to the right. From above and below, right stays right.
    static void look(dgView& view, grViewSide side, gi_Axis up = gi_Z_AXIS);
    /// Shows the view in perspective, with the eye before the middle of what is seen, twice as far away as its larger
    /// side is long, or in parallel projection.
    static void perspective(dgView& view, int on);
    /// Puts the clipping planes around the contents again, now and at every drawing, until a user moves them.
    static void reset_clipping_planes(dgView& view, dgBoundingViewType mode);

    /// Turns the view about an axis in view space (x right, y up, z towards the eye) through a centre in world space,
    /// by the right-hand rule. The axis need not be a unit vector.
    static void turn(dgView& view, const giPoint3& centre, const giVector3& axis, giAngle angle);

    /// Multiplies the size of what is seen, within the camera's limits, about the middle of the view; a factor below 1
    /// comes closer.
    static void zoom(dgView& view, double factor);
    /// Lets a box fill the view as far as its proportions allow; the corners may be in any order. 0, and nothing
    /// changes, when the box is less than 2 pixels wide and high.
    static int zoom_to_box(dgView& view, const giBox2& box);

    /// Moves the picture to the right and up.
    static void pan(dgView& view, const giVector2& pixels);
    /// Brings what shows at a position to the middle of the viewport.
    static void pan_to_centre(dgView& view, const giPoint2& position);
};
