#pragma once

#include "giPoint3.h"
#include "grSpaceballSettings.h"
#include "grStdViewTwiddleTool.h"

/// Turns and moves a view with a six-axis device: what is seen follows the ball.
///
/// One event at full deflection, of the usual length of a 60th of a second, turns the view by 0.05 radians about the
/// centre that a trackball would take, moves the picture by 2 % of the height of the view window to the side or up, and
/// zooms by 2 % when the ball is pulled towards the user (closer) or pushed away. Smaller deflections and other lengths
/// act in proportion. The resources of grSpaceballSettings change which axis does what, and how much.
class GR_EXPORT grSpaceballTool : public grStdViewTwiddleTool
{
public:
    grSpaceballTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    UT_DECLARE_TYPE(grSpaceballTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void spaceball_event(const gwSpaceballEvent& event) override;

    /// The centre of rotation of a view in world space, by the hooks' trackball centre type.
    giPoint3 trackball_centre(dgView* view) const;
    /// The same at the start of a twiddle: the hooks may update a world centre first.
    giPoint3 start_centre(dgView* view, const gwKeyEvent& event);

    /// What an event stands for, the same for all views.
    struct Motion
    {
        giVector3 turn; ///< rotation vector in view space, radians
        giVector3 push; ///< shares of the height of the view window
        double zoom;    ///< factor on the view window
    };
    Motion find_motion(const gwSpaceballEvent& event) const;
    /// Applies a motion to a view about a centre in world space.
    static void apply_motion(dgView* view, const Motion& motion, const giPoint3& centre);

    /// Applies one event of the device to a view about a centre in world space.
    void spaceball_action(dgView* view, const gwSpaceballEvent& event, const giPoint3& centre) const;

private:
    grSpaceballSettings the_settings;
    giPoint3 the_centre; // world
};
