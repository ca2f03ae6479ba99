#pragma once

#include "giVector2.h"
#include "grTurnViewTool.h"

/// Turns a view about a fixed axis of the view in proportion to the travel of the pointer: one turn for the height of
/// the renderer.
///
/// The arguments choose the axis. What is near the eye follows the pointer: "x_axis" (the default) turns with vertical
/// travel, "y_axis" and "z_axis" with horizontal travel (to the right is clockwise about z), "xyz_axis" about the axis
/// in the view plane at right angles to the travel.
class GR_EXPORT grRotateViewTool : public grTurnViewTool
{
public:
    grRotateViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    /// 0 x_axis, 1 y_axis, 2 z_axis, 3 xyz_axis.
    int axis_mode() const { return the_axis_mode; }

    UT_DECLARE_TYPE(grRotateViewTool, grTwiddleTool);

protected:
    void spin_action() const override;
    int find_spin_step(const grTwiddleTimer& timer) override;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Turns a view about a centre in world space; delta is the last position less the current one, in pixels.
    static void apply_rotation(dgView* view, const giPoint3& centre, const giVector2& delta, int axis_mode);

    /// Turns a view about a centre by what the next spin_action turns by.
    void apply_spin_rotation(dgView* view, const giPoint3& centre) const;

    /// The origin of the workplane if there is one that is on, else the hooks' world centre of the view.
    giPoint3 rotation_centre(dgView* view) const;

private:
    int the_axis_mode;
    giVector2 the_spin_step; // of the throw, pixels
};
