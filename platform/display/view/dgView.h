#pragma once

#include "coCallList.h"
#include "dgBase.h"
#include "dgCamera.h"
#include "dgElementPath.h"
#include "dgEnums.h"
#include "dgLooks.h"
#include "dgPickHit.h"
#include "dgPickSettings.h"
#include "dgRef.h"
#include "dgStructure.h"
#include "dgViewShadingContext.h"

#include <iosfwd>
#include <vector>

class dgGraphicalElement;
class dgPickAperture;
class dgPickResult;
class dgRenderNetworkAction;
class dgRenderer;

/// A view of a network of structures through a camera, drawn by a renderer into the camera's viewport.
///
/// Views are counted, but owned by their creator: lowering the count never destroys one.
class DG_EXPORT dgView : public dgBase
{
public:
    /// renderer may be null; it must outlive the view or be taken from it first.
    explicit dgView(dgRenderer* renderer = nullptr);

    /// Fires DG_VIEW_TO_BE_DELETED while the view is still usable.
    ~dgView() override;
    dgView(const dgView&) = delete;
    dgView& operator=(const dgView&) = delete;

    /// Lowers the count alone.
    void unreference() override;

    dgCamera& camera() { return the_camera; }
    const dgCamera& camera() const { return the_camera; }

    dgRenderer* renderer() const { return the_renderer; }
    void renderer(dgRenderer* renderer) { the_renderer = renderer; }

    /// Size in pixels of the renderer's drawing area; 1 without a renderer.
    int renderer_width() const;
    int renderer_height() const;

    /// Root of the view's network, referenced, or null.
    dgStructure* root() const { return the_root.get(); }
    void root(dgStructure* root) { the_root = dgRef<dgStructure>(root); }

    /// How parts of the network are shown otherwise than it says; referenced, null for nothing. In force in drawings of
    /// the root and of what calls it, and in picking.
    dgLooks* looks() const { return the_looks.get(); }
    void looks(dgLooks* looks);

    /// Grows whenever the network changes, or the looks do. 0 without a root.
    unsigned long long shown_stamp() const;

    /// The callbacks of the view; reasons are dgViewReason, the sender is the view. DG_CAMERA_SHOWN is fired at the end
    /// of the first drawing with a camera, whoever has changed it. Callbacks of it and of DG_VIEW_ERASED, which are
    /// called with the clipping planes of the picture and between no begin and end, must delete neither view nor
    /// renderer.
    coCallList& call_list() { return the_call_list; }

    /// Fills the viewport with the background, and with the depths erased too fires DG_VIEW_ERASED. This and the
    /// drawing of networks always go to the main window through driver 0, whichever driver is selected; it is selected
    /// again afterwards.
    void erase(dgEraseZbuffer zbuffer);

    /// How often erase was called: tells whoever draws a picture bit by bit that another one was begun meanwhile.
    unsigned erasures() const { return the_erasures; }

    /// Draws the whole network (null) or one structure through the renderer's render action. Unless the user set the
    /// clipping planes, they are first fitted to the network. A view without a root draws nothing for null.
    void render_network(dgStructure* structure);

    /// Draws one structure past any render action.
    void render_network_normal(dgStructure& structure);

    /// Bracket immediate drawing: camera, viewport and shading are in force between them. They do not nest.
    void begin();
    void end();

    /// Execute elements between begin and end.
    void execute(const dgGraphicalElement& element);
    void execute_structure(const dgStructure& structure);

    dgViewShadingContext& shading_context() { return the_shading; }
    const dgViewShadingContext& shading_context() const { return the_shading; }

    /// The box in world space of what the view shows of its network: what looks hide is left out, what a section cuts
    /// away is not. Empty where there is nothing.
    giBox3 shown_box() const;

    /// Fits the camera to what is shown, with the clipping planes unless the user set them; nothing to be shown changes
    /// nothing.
    void view_bbox(dgBoundingViewType type = dgBOUNDING_VIEW_BOX);

    /// All primitives that the view shows in an aperture, as the renderer's settings say; what hides them makes no
    /// difference. Never null; released by the caller.
    dgPickResult* pick_all(const dgPickAperture& aperture, dgPickMode mode = dgPICK_EXACT) const;

    /// What the view shows in an aperture, by what and to which depth: one hit for each primitive at each of its
    /// places, or with features 1 for each of its triangles, segments, points and texts, the nearest to the eye first.
    /// What is hidden by looks is not hit; what lies behind other things is.
    std::vector<dgPickHit> pick_hits(const dgPickAperture& aperture, int features = 0) const;

    /// Draws parts of the network over the picture that the selected buffer holds, so that it becomes what a drawing of
    /// all would be: after a change of their colours, with nothing else changed since the picture. 0, with nothing
    /// drawn, where that cannot be: the picture is not, or no longer, a whole drawing of the network by render_network,
    /// the camera was moved, something see-through is in it, or another view lies over this one.
    int redraw_parts(const std::vector<dgElementPath>& paths);

    /// 1 when something see-through is in the picture: what is drawn over it later, as by slices, is not seen through
    /// it.
    int shows_see_through() const { return the_shows_see_through; }

    /// Tells that the picture is a whole one, drawn otherwise.
    void picture_is_whole();
    /// Tells that it no longer is. Erasing the view, and drawing anything else by render_network, does so too.
    void picture_is_lost() { the_picture.whole = 0; }

    /// For views whose picture must keep its middle, such as a sheet: 1 makes the mouse wheel zoom about the middle of
    /// the view and not about the cursor, which would pan. Panning itself goes on. 0 by default.
    int pan_forbidden() const { return the_pan_forbidden; }
    void pan_forbidden(int on) { the_pan_forbidden = on; }

    /// 1 once a user has moved the clipping planes: they are then left alone.
    int user_clip_planes() const { return the_user_clip_planes; }
    void user_clip_planes(int on) { the_user_clip_planes = on; }

    /// How the planes are fitted to the network at each drawing, unless the user set them.
    dgBoundingViewType clipping_mode() const { return the_clipping_mode; }
    void clipping_mode(dgBoundingViewType mode) { the_clipping_mode = mode; }

    /// Consulted about this view, or null; not owned. the_global_render_network_action serves views without one.
    dgRenderNetworkAction* render_network_action() const { return the_render_network_action; }
    void render_network_action(dgRenderNetworkAction* action) { the_render_network_action = action; }
    static dgRenderNetworkAction* the_global_render_network_action;

    void print(std::ostream& os, int level, int indent) const;

    UT_DECLARE_TYPE(dgView, dgBase);

private:
    void fit_planes(dgCamera& camera) const;
    void draw_network(dgStructure& structure, int past_action);

    dgCamera the_camera;
    dgRenderer* the_renderer;
    // What the picture shows.
    struct Picture
    {
        int whole = 0;
        unsigned long long network_stamp = 0;
        unsigned long long erasures = 0; // of the renderer
        giXform3 orientation, projection;
        giBox2 view_port;
        double front = 0, back = 0;
        std::optional<giPlane> section;

        bool operator==(const Picture&) const = default;
    };
    Picture picture() const;
    struct Camera
    {
        giXform3 orientation;
        giBox2 window, view_port;
        giPoint3 eye; // the origin in parallel views

        bool operator==(const Camera&) const = default;
    };
    void tell_of_camera();
    const dgLooks* hiding_looks() const;

    dgRef<dgStructure> the_root;
    dgRef<dgLooks> the_looks;
    Picture the_picture;
    int the_shows_see_through = 0;
    Camera the_camera_shown; // of which its callbacks were told last
    coCallList the_call_list;
    dgViewShadingContext the_shading;
    int the_pan_forbidden = 0;
    int the_user_clip_planes = 0;
    dgBoundingViewType the_clipping_mode = dgBOUNDING_VIEW_SPHERE;
    int the_begun = 0;
    unsigned the_erasures = 0;
    dgHLHSRMode the_renderers_hlhsr_mode = dgHLHSR_OFF; // before begin
    dgRenderNetworkAction* the_render_network_action = nullptr;
};
