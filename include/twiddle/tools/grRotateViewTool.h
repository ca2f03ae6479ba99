#pragma once

#include "giPoint2.h"
#include "giPoint3.h"
#include "giVector2.h"
#include "grStdViewTwiddleTool.h"

#include <memory>

class grSpin;
class grTwiddleTimer;
/// Turns a view about a fixed axis of the view in proportion to the travel of the pointer: one turn for the height of
/// the renderer. It keeps spinning as the trackball does.
///
/// The arguments choose the axis. What is near the eye follows the pointer: "x_axis" (the default) turns with vertical
/// travel, "y_axis" and "z_axis" with horizontal travel (to the right is clockwise about z), "xyz_axis" about the axis
/// in the view plane at right angles to the travel. The resources "rotate_about_cursor", "spin_time_true" and
/// "spin_decay" act as they do on the trackball.
class GR_EXPORT grRotateViewTool : public grStdViewTwiddleTool
{
public:
    grRotateViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grRotateViewTool() override;

    /// 0 x_axis, 1 y_axis, 2 z_axis, 3 xyz_axis.
    int axis_mode() const { return the_axis_mode; }
    /// 1 while the view goes on turning after the release.
    int spinning() const { return the_spinning; }

    UT_DECLARE_TYPE(grRotateViewTool, grTwiddleTool);

protected:
    /// Turns the view by one step of the spin.
    virtual void spin_action() const;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    grIdleAction idle_event() override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Turns a view about a centre in world space; delta is the last position less the current one, in pixels.
    static void apply_rotation(dgView* view, const giPoint3& centre, const giVector2& delta, int axis_mode);

    /// One step of the spin of a view about a centre.
    void apply_spin_rotation(dgView* view, const giPoint3& centre) const;

    /// The origin of the workplane if there is one that is on, else the hooks' world centre of the view.
    giPoint3 rotation_centre(dgView* view) const;

    const giPoint2& last_point() const { return the_last_point; }

private:
    int the_axis_mode;
    giPoint3 the_rotation_centre; // world
    giPoint2 the_last_point;      // device
    int the_about_cursor = 0;
    int the_spinning = 0;
    std::unique_ptr<grSpin> the_spin;          // null when spinning is not allowed
    double the_spin_steps = 1;                 // of the throw, by which the next spin_action turns
    std::unique_ptr<grTwiddleTimer> the_timer; // null when spinning is not allowed
};
