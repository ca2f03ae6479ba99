#pragma once

#include "dgEnums.h"
#include "dgExport.h"
#include "giBox2.h"
#include "giPlane.h"
#include "giPoint3.h"
#include "giVector2.h"
#include "giVector3.h"
#include "giXform3.h"
#include "gi_Axis.h"

#include <optional>

class coCallList;
class giBox3;

/// How a camera projects onto its view plane.
enum dgProjection
{
    dgPROJECTION_PARALLEL = 0,
    dgPROJECTION_PERSPECTIVE = 1
};

/// Says how the world is seen: where from, how large, and onto which pixels.
///
/// World space is turned and moved into view space by a rigid transform. In view space x points right, y up and z
/// towards the eye; the view plane is z = 0. The view window is a box on that plane, and it is shown as large as its
/// proportions allow in the middle of the viewport. Device space is pixels of the window with the origin at the lower
/// left; whole numbers are pixel centres and a viewport includes its low and high pixels. Device z is view z, so that
/// depth 0 is the view plane.
///
/// A copy carries everything but the view that owns the camera.
class DG_EXPORT dgCamera
{
public:
    dgCamera();
    dgCamera(const dgCamera& other);
    dgCamera& operator=(const dgCamera& other);

    /// World-to-view transform. Setting it fires nothing: call world2view_altered afterwards.
    const giXform3& orientation() const { return the_world_to_view; }
    void orientation(const giXform3& world_to_view);

    /// Sets the transform from the eye point (the origin of view space), the direction of view and the up vector,
    /// which need not be unit vectors nor at right angles.
    void orientation(const giPoint3& eye, const giVector3& direction, const giVector3& up);

    /// Takes a rigid world-to-view transform apart. Outputs that are null are skipped; vectors are unit vectors.
    static void orientation(const giXform3& world_to_view, giPoint3* eye, giVector3* direction, giVector3* up);

    /// Tells the camera that its transform was changed: the owning view's callbacks for DG_WORLD2VIEW_CHANGED run once.
    void world2view_altered();

    /// Identity orientation; window and planes stay.
    void reset_orientation();

    /// Turns the view about one of its own axes through the view centre and tells the view.
    void rotate_view(gi_Axis axis, double radians);

    /// Magnification: 1 / height of the view window. Setting keeps the view centre and the proportions.
    double scale() const;
    void scale(double scale);

    const giBox2& view_window() const { return the_view_window; }
    void view_window(const giBox2& window);

    /// Multiplies the size of the window by factor about its middle; below 1 comes closer. It stays between 1e-15 of
    /// the middle's distance from the origin of view space, where its corners would become one (or 1e-30), and 1e30. A
    /// factor that is not above 0 changes nothing.
    void zoom(double factor);

    /// Moves the picture by a share of the viewport: (1, 0) is its whole width to the right.
    void pan_view(const giVector2& share);

    /// The world point in the middle of the window, on the view plane.
    giPoint3 view_centre() const;

    /// Viewport in device coordinates; low and high pixels are included.
    const giBox2& view_port_dc() const { return the_view_port; }
    void view_port_dc(const giBox2& box) { the_view_port = box; }

    /// Size in pixels of the renderer that the camera is set up for.
    const giVector2& window_size() const { return the_window_size; }
    void window_size(const giVector2& pixels) { the_window_size = pixels; }

    dgProjection projection() const { return the_projection; }
    void projection(dgProjection projection) { the_projection = projection; }

    /// Eye of a perspective projection in view space; its z is greater than 0.
    const giPoint3& projection_reference_point() const { return the_reference_point; }
    void projection_reference_point(const giPoint3& point) { the_reference_point = point; }

    /// Transforms a point between world, view and device space.
    void transform(const giPoint3& point, giPoint3& result, dgCameraSpace from, dgCameraSpace to) const;

    /// Fits the view to a box in world space with a margin of 2.5 % all around, the orientation kept: the middle of the
    /// box comes to the middle of the window and onto the view plane, and the planes enclose the sphere around the box.
    /// An empty box changes nothing. Fires nothing. In perspective an eye that is nearer than 2 or farther than 50 half
    /// diagonals of the box moves to 5 of them, in the same direction from the view plane's origin.
    void view_bounding_box(const giBox3& box, dgBoundingViewType type);

    /// Sets the front and back planes so that they just enclose a box in world space. An empty box changes nothing.
    void clip_bounding_box(const giBox3& box, dgBoundingViewType type);

    /// Clipping planes: view z beyond which nothing is drawn; front is greater than back.
    double front_plane() const { return the_front; }
    double back_plane() const { return the_back; }
    void front_plane(double distance) { the_front = distance; }
    void back_plane(double distance) { the_back = distance; }
    void front_back_plane(double front, double back);

    /// A plane in world space that cuts what is shown open: of what lies on its negative side nothing is drawn or
    /// picked. None at first.
    const std::optional<giPlane>& section() const { return the_section; }
    void section(const std::optional<giPlane>& plane) { the_section = plane; }

    /// View z between which something is shown: the clipping planes, in perspective no nearer than just before the eye.
    void shown_depths(double& front, double& back) const;

    /// Pixels a unit of the view plane takes, the same in x and y.
    double pixels_per_unit() const;

    /// View space to the cube from -1 to 1 that a graphics driver expects, front plane at -1. Projective in
    /// perspective.
    giXform3 projection_transform() const;

private:
    friend class dgView;
    class dgView;
    void place_eye(double radius);
    double view_port_width() const;
    double view_port_height() const;
    void set_window(const giPoint2& middle, const giVector2& size);

    coCallList* the_call_list = nullptr; // of the view that owns the camera, if any
    giXform3 the_world_to_view;
    giBox2 the_view_window;
    // The same window: where it is far smaller than far from the origin, its corners no longer tell its size.
    giPoint2 the_window_middle;
    giVector2 the_window_extent;
    giBox2 the_view_port;
    giVector2 the_window_size;
    dgProjection the_projection = dgPROJECTION_PARALLEL;
    giPoint3 the_reference_point;
    double the_front = 1;
    double the_back = -1;
    std::optional<giPlane> the_section;
};
