#pragma once

#include "dgCamera.h"
#include "grExport.h"

class dgView;

/// How a view looked at its world: orientation, window, projection and clipping planes. What belongs to the view's
/// place on the screen, its viewport and the size of its window, is left out of account.
class GR_EXPORT grSavedCameraPosition
{
public:
    explicit grSavedCameraPosition(const dgView& view);

    const dgCamera& camera() const { return the_camera; }
    /// 1 when the clipping planes were the user's own.
    int user_clip_planes() const { return the_user_clip_planes; }

    /// 1 when the view looks at its world in exactly this way. Clipping planes that are not the user's do not count.
    int is_position_of(const dgView& view) const;

    /// Puts the camera and the clipping planes back and tells the view's camera that it was altered.
    void restore(dgView& view) const;

    /// Each part of that, without telling.
    void restore_camera(dgView& view) const;
    void restore_clipping_planes(dgView& view) const;

private:
    dgCamera the_camera;
    int the_user_clip_planes;
};
