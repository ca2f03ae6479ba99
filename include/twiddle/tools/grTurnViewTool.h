#pragma once

#include "giPoint2.h"
#include "giPoint3.h"
#include "grStdViewTwiddleTool.h"

#include <memory>

class grSpin;
class grTwiddleTimer;

/// Base of the tools that turn a view about a centre while the pointer moves, and keep it spinning when the hooks allow
/// that and the button is let go while the pointer moves.
///
/// Resources: "rotate_about_cursor", yes/no (no), takes the point of the surface under the pointer as the centre, where
/// there is one; how a spin goes on is said by "spin_time_true", "spin_decay" and "spin_in_frame_time", see
/// docs/view-tools.md.
class GR_EXPORT grTurnViewTool : public grStdViewTwiddleTool
{
public:
    grTurnViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grTurnViewTool() override;

    /// 1 while the view goes on turning after the release.
    int spinning() const { return the_spinning; }

    UT_DECLARE_TYPE(grTurnViewTool, grTwiddleTool);

protected:
    /// Turns the view by spin_steps() steps of the throw.
    virtual void spin_action() const = 0;
    /// Takes over the step of a throw that spins on; 0 when it turns nothing.
    virtual int find_spin_step(const grTwiddleTimer& timer) = 0;

    grIdleAction idle_event() override;
    void destruction_twiddle() override;

    /// Keeps where a twiddle starts, and tells the hooks and the refresher.
    void start_turning(const giPoint3& centre_world, const gwKeyEvent& event);
    /// A point of the drag in device pixels. The timer gets each; the last one is where the next step starts.
    void record_point(const giPoint2& point);
    void last_point(const giPoint2& point) { the_last_point = point; }
    const giPoint2& last_point() const { return the_last_point; }
    /// Starts to spin, and turns for the first time, if the drag that is released here is a throw.
    void start_spinning(const giPoint2& release_point);

    /// By how many steps of the throw the next spin_action turns.
    double spin_steps() const { return the_spin_steps; }
    /// Whether to turn about the surface under the pointer.
    int about_cursor() const { return the_about_cursor; }
    /// Of the target view, world.
    const giPoint3& target_centre() const { return the_target_centre; }

private:
    giPoint2 the_last_point;    // device
    giPoint3 the_target_centre; // world
    int the_about_cursor = 0;
    int the_spinning = 0;
    std::unique_ptr<grSpin> the_spin; // null when spinning is not allowed
    double the_spin_steps = 1;
};
