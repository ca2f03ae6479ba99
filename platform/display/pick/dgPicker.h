#pragma once

#include "dgCamera.h"
#include "dgExport.h"
#include "dgPickSettings.h"

#include <vector>

class dgGraphicalPrimitive;
class dgPickAperture;
class dgPickResult;
class dgStructure;
class giBox3;
struct dgGeometry;

/// Finds the primitives of a network that a camera shows in an aperture: between its clipping planes, before its eye
/// and inside its viewport. What hides them makes no difference.
class DG_EXPORT dgPicker
{
public:
    /// All but the aperture must outlive the picker.
    dgPicker(const dgCamera& camera, const dgPickAperture& aperture, dgPickMode mode, const dgPickSettings& settings,
             dgPickResult& result);

    /// Appends to the result, in drawing order, until the settings' largest count is reached.
    void pick(const dgStructure& root);

    /// A point or a direction of the device's plane.
    struct Point
    {
        double x, y;
    };

private:
    bool full() const;
    bool picks(const dgGraphicalPrimitive& primitive, const giXform3& to_world);
    bool box_meets(const giBox3& box, const giXform3& to_world);
    bool features_meet(const dgGeometry& geometry, const giXform3& to_world);
    Point device(const giPoint3& point_view) const;
    bool meets(const giPoint3* corners_view, int n);

    const dgCamera& the_camera;
    double the_front, the_back; // view z between which something is shown
    giBox2 the_box;             // device pixels
    Point the_corners[4];       // of the box
    dgPickMode the_mode;
    const dgPickSettings& the_settings;
    dgPickResult& the_result;

    // Kept from one primitive to the next.
    std::vector<giPoint3> the_points_view;
    std::vector<giPoint3> the_shown_part;
};
