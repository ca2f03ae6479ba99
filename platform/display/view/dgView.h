#pragma once

#include "coCallList.h"
#include "dgBase.h"
#include "dgCamera.h"
#include "dgEnums.h"
#include "dgPickSettings.h"
#include "dgRef.h"
#include "dgStructure.h"
#include "dgViewShadingContext.h"

#include <iosfwd>

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

    /// The callbacks of the view; reasons are dgViewReason, the sender is the view.
    coCallList& call_list() { return the_call_list; }

    /// Fills the viewport with the background. This and the drawing of networks always go to the main window through
    /// driver 0, whichever driver is selected; it is selected again afterwards.
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

    /// Fits the camera to the network, with the clipping planes unless the user set them; an empty network changes
    /// nothing.
    void view_bbox(dgBoundingViewType type = dgBOUNDING_VIEW_BOX);

    /// All primitives that the view shows in an aperture, as the renderer's settings say; what hides them makes no
    /// difference. Never null; released by the caller.
    dgPickResult* pick_all(const dgPickAperture& aperture, dgPickMode mode = dgPICK_EXACT) const;

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
    void fit_planes();
    void draw_network(dgStructure& structure, int past_action);

    dgCamera the_camera;
    dgRenderer* the_renderer;
    dgRef<dgStructure> the_root;
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
