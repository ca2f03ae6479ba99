#pragma once

#include "grCameraInterpolation.h"
#include "grStdViewTwiddleTool.h"

#include <optional>

/// Steps to the previous or next camera that was saved for a view; acts at the press. The camera glides there in idle
/// time, also after the release; the next press, which destroys the tool, brings it to its end at once.
///
/// The argument "next" steps forwards, any other backwards. When the view has been changed since a camera was last
/// saved for it, by a tool that saves none, a step backwards first saves the camera that it leaves, so that nothing is
/// skipped and "next" leads back. The resource "view_index_seconds", a number from 0 on (0.4), is the time of the way;
/// at 0 the camera jumps.
class GR_EXPORT grViewIndexTool : public grStdViewTwiddleTool
{
public:
    static constexpr double the_default_seconds = 0.4;

    grViewIndexTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    /// 1 for "next".
    int forwards() const { return the_forwards; }
    /// The position in the target's camera cache that the step led to, -1 when there was none to step to.
    int index() const { return the_index; }
    /// 1 while the camera is on its way.
    int moving() const { return the_moving; }

    UT_DECLARE_TYPE(grViewIndexTool, grTwiddleTool);

protected:
    /// The way of one view.
    using Way = std::optional<grCameraInterpolation>;

    void start_twiddle(const gwKeyEvent& event) override;
    grIdleAction idle_event() override;
    void end_twiddle(const gwKeyEvent& event) override;
    void destruction_twiddle() override;

    /// Finds the views to be moved and their ways; 1 when there is any way to go.
    virtual int find_ways(const gwKeyEvent& event);
    /// Puts the views at a share of their ways, from 0 to 1.
    virtual void move_views(double share) const;

    /// Steps in the camera cache of a view, and answers the way there: none when the cache ends.
    Way step(dgView* view) const;
    /// Puts a view at a share of a way, if there is one: at 1 the stored camera is restored, and its clipping planes.
    static void interpolate_view(dgView* view, const Way& way, double share);
    static void restore_camera(dgView* view, const grSavedCameraPosition& stored);
    static void set_clipping_planes_view(dgView* view, const grSavedCameraPosition& stored);

private:
    void advance();

    int the_forwards;
    double the_seconds = the_default_seconds;
    int the_index = -1;
    int the_moving = 0;
    double the_start_time = 0; // high-resolution clock
    Way the_way;               // of the target
};
