#include "grSavedCameraPosition.h"

#include "dgView.h"
#include "grPaperMove.h"

grSavedCameraPosition::grSavedCameraPosition(const dgView& view)
    : the_camera(view.camera()), the_user_clip_planes(view.user_clip_planes())
{}

int grSavedCameraPosition::is_position_of(const dgView& view) const
{
    const dgCamera& camera = view.camera();
    return camera.orientation() == the_camera.orientation() && camera.view_window() == the_camera.view_window() &&
           camera.projection() == the_camera.projection() &&
           camera.projection_reference_point() == the_camera.projection_reference_point() &&
           view.user_clip_planes() == the_user_clip_planes &&
           // Planes that are not the user's are fitted anew by every drawing.
           (!the_user_clip_planes ||
            (camera.front_plane() == the_camera.front_plane() && camera.back_plane() == the_camera.back_plane()));
}

void grSavedCameraPosition::restore(dgView& view) const
{
    restore_camera(view);
    restore_clipping_planes(view);
    view.camera().world2view_altered();
}

void grSavedCameraPosition::restore_camera(dgView& view) const
{
    const grPaperMove paper(view);
    dgCamera& camera = view.camera();
    camera.orientation(the_camera.orientation());
    camera.view_window(the_camera.view_window());
    camera.projection(the_camera.projection());
    camera.projection_reference_point(the_camera.projection_reference_point());
}

void grSavedCameraPosition::restore_clipping_planes(dgView& view) const
{
    view.camera().front_back_plane(the_camera.front_plane(), the_camera.back_plane());
    view.user_clip_planes(the_user_clip_planes);
}
