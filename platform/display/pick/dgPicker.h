#pragma once

#include "dgBoxTree.h"
#include "dgCamera.h"
#include "dgExport.h"
#include "dgPickSettings.h"

#include <memory>
#include <optional>
#include <vector>

class dgAttributeContext;
class dgGraphicalPrimitive;
class dgLooks;
class dgPickAperture;
class dgPickResult;
class dgStructure;
class dgText;
class dgTextFontSlots;
class dgViewVolume;
class giBox3;
struct dgGeometry;
struct dgGlyphOutline;
struct dgPickHits;
struct dgTextStyle;
struct dgPrimitiveRun;

/// Finds the primitives of a network, texts by their letters, that a camera shows in an aperture: between its clipping
/// planes, before its eye and inside its viewport. What hides them makes no difference. It looks into what lies about
/// the aperture alone, by the boxes that structures, runs and large primitives keep; those of the last are made when
/// they are first needed.
class DG_EXPORT dgPicker
{
public:
    /// All but the aperture must outlive the picker.
    dgPicker(const dgCamera& camera, const dgPickAperture& aperture, dgPickMode mode, const dgPickSettings& settings,
             const dgTextFontSlots& fonts, dgPickResult& result);

    ~dgPicker();
    dgPicker(const dgPicker&) = delete;
    dgPicker& operator=(const dgPicker&) = delete;

    /// Appends to the result, in drawing order, until the settings' largest count is reached. What looks, which may be
    /// null, hide is not met.
    void pick(const dgStructure& root, const dgLooks* looks = nullptr);

    /// Collects hits in place of the result.
    void hits(dgPickHits* hits) { the_hits = hits; }

    /// A point or a direction of the device's plane.
    struct Point
    {
        double x, y;
    };

private:
    class Walk;
    class Cursor;
    bool full() const;
    void take(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume);
    void add_hits(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume);
    double next_to_middle(giPoint3& point_view) const;
    void pick_in(const dgPrimitiveRun& run, const giXform3& to_world);
    void pick_texts(const dgPrimitiveRun& run, const dgAttributeContext& attributes, const giXform3& to_world);
    bool picks(const dgText& text, const dgTextStyle& style, const giXform3& to_view);
    bool meets(const dgGlyphOutline& letter, const giXform3& to_view);
    bool picks(const dgGraphicalPrimitive& primitive, const giXform3& to_view, const dgViewVolume& volume);
    giBox2 shown_part(const giBox3& box, const giXform3& to_view);
    dgViewVolume volume(const giXform3& to_view) const;
    dgBoxTest look(const giBox3& box, const giXform3& to_view, const dgViewVolume& volume);
    bool box_meets(const giBox3& box, const giXform3& to_view);
    bool features_meet(const dgGraphicalPrimitive& primitive, const dgGeometry& geometry, const giXform3& to_view,
                       const dgViewVolume& volume);
    bool feature_meets(const dgGeometry& geometry, int feature, const giXform3& to_view);
    bool shows(const giPoint3& point_view) const;
    void leave_shown_part();
    Point device(const giPoint3& point_view) const;
    bool meets(const giPoint3* corners_view, int n);

    const dgCamera& the_camera;
    double the_front, the_back;         // view z between which something is shown
    std::optional<giPlane> the_section; // in view space
    giBox2 the_box;                     // device pixels
    giBox2 the_part;                    // the same in the cube that the projection leads to
    giXform3 the_projection;
    Point the_corners[4]; // of the box
    dgPickMode the_mode;
    const dgPickSettings& the_settings;
    const dgTextFontSlots& the_fonts;
    dgPickResult& the_result;
    dgPickHits* the_hits = nullptr;

    // Kept from one primitive to the next.
    std::vector<int> the_groups;
    class Axis;
    struct Placing;
    std::unique_ptr<Placing> the_placing; // of the run before
    std::vector<giPoint3> the_shown_part;
};
