#pragma once

#include "giPoint2.h"
#include "giVector2.h"
#include "grStdViewTwiddleTool.h"

/// Distances of a view's clipping planes, in view space.
struct grFrontBackPlanes
{
    double front = 0;
    double back = 0;
};

/// Moves the clipping planes of a view by vertical drag, which shows the inside of a part. Half the height of the
/// renderer moves them by the distance they had at the press; up moves them away from the eye. Planes that have met are
/// parted again by the distance of planes fitted to the contents, and never pass each other.
///
/// The arguments choose the plane: "front" (the default), "back" or "both". From the first mouse event on, the view
/// leaves its planes as the user set them.
class GR_EXPORT grMoveFrontBackTool : public grStdViewTwiddleTool
{
public:
    grMoveFrontBackTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    /// 0 front, 1 back, 2 both.
    int plane_mode() const { return the_plane_mode; }

    UT_DECLARE_TYPE(grMoveFrontBackTool, grTwiddleTool);

protected:
    /// Moves the planes of the target view by the drag up to the event.
    virtual void move_planes(const gwMouseEvent& event) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;

    static grFrontBackPlanes planes_of(dgView* view);
    /// Moves the planes of a view from where they were at the start; drag is the press point less the current one, in
    /// pixels.
    static void move_planes(dgView* view, const grFrontBackPlanes& start, const giVector2& drag, int plane_mode);

    const giPoint2& start_point() const { return the_start_point; }

private:
    int the_plane_mode;
    giPoint2 the_start_point; // device
    grFrontBackPlanes the_start_planes;
};
