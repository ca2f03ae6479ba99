#pragma once

#include "giAngle.h"
#include "giPoint2.h"
#include "giPoint3.h"
#include "giVector3.h"
#include "grTrackballCentreType.h"
#include "grTurnViewTool.h"

#include <memory>

class dgStructure;
class giXform3;
class grTrackball;

/// Turns a view about a centre as if the pointer rolled a ball.
///
/// The arguments "world", "view" and "workplane" choose the centre instead of the hooks: their world centre, the middle
/// of the viewport, or the origin of the workplane. Resources, both in trackball coordinates (a view spans one unit
/// each way): "trackball_virtual_radius", that of the ball (0.4, limited to 1e-5 to 1), and "trackball_icon_radius",
/// that of the sphere drawn around the centre, as a share of the height of the view (0).
///
/// A further one, "trackball_round", yes/no (no), makes trackball coordinates span the smaller side of the renderer
/// each way, so that the ball is round on wide and high views. "rotate_about_cursor" replaces the world centre alone.
class GR_EXPORT grTrackballTool : public grTurnViewTool
{
public:
    grTrackballTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grTrackballTool() override;

    UT_DECLARE_TYPE(grTrackballTool, grTwiddleTool);

protected:
    void spin_action() const override;
    int find_spin_step(const grTwiddleTimer& timer) override;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Sets result to the rotation about centre (world) that a step of the pointer from last to point (device) stands
    /// for. It acts in the view space of view: multiply the orientation with it from the right.
    void calculate_rotation(const giPoint2& point, dgView* view, const giPoint3& centre, const giPoint2& last,
                            giXform3& result) const;

    /// From device to trackball coordinates: the share of the target's renderer, less a half, plus offset.
    void convert_to_trackball_coord(const giPoint2& pixel, const giPoint2& offset, giPoint2& result) const;

    /// A new structure with the icon; radius in world units. Its count is 0.
    dgStructure* create_sphere(const giPoint3& centre, double radius) const;

    /// The centre of rotation of a view in world space, by the centre type in force.
    giPoint3 trackball_centre(dgView* view, const gwKeyEvent& event);

    /// The turn in view space that a step of the pointer from last to point (device) stands for, the same for all
    /// views. 0 when it turns nothing.
    int find_turn(const giPoint2& point, const giPoint2& last, giVector3& axis, giAngle& angle) const;

    /// One mouse step of a view about its centre. 0 when the step turns nothing; the camera is then left alone.
    int rotate_view(const giPoint2& point, dgView* view, const giPoint3& centre, const giPoint2& last) const;

    /// Turns a view by an angle about an axis in its view space through a centre in world space.
    static void rotate_view(dgView* view, const giPoint3& centre, const giVector3& axis, giAngle angle);

    /// What the next spin_action turns by.
    const giVector3& spin_axis() const { return the_spin_axis; }
    giAngle spin_angle() const { return giAngle(the_spin_step.radians() * spin_steps()); }

private:
    grTrackballCentreType find_centre_type() const;
    void find_centre_offset(const giPoint3& centre);
    void set_icon(const giPoint3& centre);

    giPoint2 the_centre_offset; // trackball coordinates
    grTrackballCentreType the_centre_type = dgLEAVS_TRACKBALL_CENTRE_VIEW;
    double the_width = 1; // pixels of the target's renderer that trackball coordinates span
    double the_height = 1;
    double the_icon_radius = 0.0;
    int the_icon_radius_set = 0;
    double the_virtual_radius = 0.4;
    std::unique_ptr<grTrackball> the_trackball;
    int the_round = 0;
    giVector3 the_spin_axis;
    giAngle the_spin_step; // of the throw
};
