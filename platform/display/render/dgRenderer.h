#pragma once

#include "dgAttributeContext.h"
#include "dgColourTable.h"
#include "dgDrawQuality.h"
#include "dgEnums.h"
#include "dgExport.h"
#include "dgPickSettings.h"
#include "dgRenderTargets.h"
#include "dgTextFontSlots.h"
#include "giPlane.h"
#include "giVector2.h"
#include "gsColour.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class dgCamera;
class dgDriver;
class dgGraphicalAttribute;
class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgSelectedDriver;
class dgLooks;
class dgSeeThrough;
class dgStructure;
class dgTextFont;
class dgViewVolume;
class dgWindow;
class gsRenderAction;
class gwWindow;
struct dgFeatureSpan;
struct dgImage;
struct dgPrimitiveRun;

/// Draws views on a window through a driver, and on its overlay if there is one. Owned by the application.
class DG_EXPORT dgRenderer : public dgRenderTargets
{
public:
    /// The windows are not owned. Without an overlay both are the same. input_window is what events name, or null.
    dgRenderer(dgWindow* main, dgWindow* overlay, const gwWindow* input_window = nullptr);
    ~dgRenderer() override;

    int depth_cueing() const { return the_depth_cueing; }
    void depth_cueing(int on) { the_depth_cueing = on; }

    /// What far things fade to under depth cueing.
    void cue_colour(const gsColour& colour) { the_cue_colour = colour; }

    /// The camera of immediate drawing, set before or between begin and end and forgotten at the outermost end.
    void set_camera(const dgCamera* camera);

    /// Camera 0 is the one set last; there are no others.
    void select_camera(int index);

    dgHLHSRMode hlhsr_mode() const { return the_hlhsr_mode; }
    void set_hlhsr_mode(dgHLHSRMode mode) { the_hlhsr_mode = mode; }

    /// Installs the action that sees the primitives of the next network drawings, in place of any other; null removes
    /// it. Not owned. An action that is destroyed removes itself.
    void render_action(gsRenderAction* action);
    gsRenderAction* render_action() const { return the_render_action; }

    /// Whether what lies out of view is left out of drawings: 1 by default, unless the environment variable GR_CULLING
    /// is "0". The picture is the same to the last bit.
    int culling() const { return the_culling; }
    void culling(int on) { the_culling = on; }

    const dgDrawQuality& get_pipeline_draw_quality() const { return the_draw_quality; }

    /// Copies the record; null puts the default back.
    void set_in_pipeline_context(const dgDrawQuality* quality);

    /// The font of a numbered slot, from 0 without a limit; null when the slot is free.
    dgTextFont* get_text_font(int slot) const;

    const dgTextFontSlots& text_fonts() const { return the_text_fonts; }

    /// References the font in place of the one before; null clears the slot.
    void set_text_font(dgTextFont* font, int slot);

    /// What the indexed colours of attributes stand for; copied. Empty at first.
    const dgColourTable& colour_table() const { return the_colour_table; }
    void colour_table(const dgColourTable& table);

    /// Whether the edges of views at rest are smoothed in idle time, by a grViewSmoother; 0 by default. It is off
    /// during frames of a twiddle, so that elements that draw by themselves can tell these.
    int accumulate() const { return the_accumulate; }
    void accumulate(int on) { the_accumulate = on; }

    /// Pixels to the right and upwards by which all that cameras show is moved, for pictures that are averaged. None at
    /// first.
    const giVector2& picture_shift() const { return the_picture_shift; }
    void picture_shift(const giVector2& pixels) { the_picture_shift = pixels; }

    /// Whether shares of heavy blocks are drawn by simplified levels, where the driver has them; 1 by default. A sample
    /// of the triangles is drawn otherwise.
    int simplified_levels() const { return the_simplified_levels; }
    void simplified_levels(int on) { the_simplified_levels = on; }

    /// Whether refreshers must not draw slices in idle time.
    int idle_slicing_forbidden() const { return the_idle_slicing_forbidden; }
    void idle_slicing_forbidden(int on) { the_idle_slicing_forbidden = on; }

    const dgPickSettings& pick_settings() const { return the_pick_settings; }
    void pick_settings(const dgPickSettings& settings) { the_pick_settings = settings; }

    /// What shows parts of a network otherwise than it says, in drawings of the structure that is the root of its
    /// paths and of those that call it; null for nothing. Set by views while they draw; neither is owned.
    void looks(const dgLooks* looks, const dgStructure* root)
    {
        the_looks = looks;
        the_looks_root = root;
    }
    const dgLooks* looks() const { return the_looks; }
    const dgStructure* looks_root() const { return the_looks_root; }

    /// 1 when something see-through was drawn between the last outermost begin and end.
    int drew_see_through() const { return the_drew_see_through; }

    /// Open and close one level of attribute context; a pop restores the attributes and the transform exactly.
    void push_structure() { the_context.push(); }
    void pop_structure() { the_context.pop(); }

    /// What is in force where the drawing stands.
    const dgAttributeContext& context() const { return the_context; }

    /// Execute one element between begin and end: an attribute is applied, a primitive drawn.
    void execute(const dgGraphicalElement& element);
    void set_attribute(const dgGraphicalAttribute& attribute) { the_context.set(attribute); }
    /// As a world transform does.
    void place(const giXform3& to_world) { the_context.place(to_world); }
    /// Puts an attribute in force whatever is set until the open level is closed.
    void force_attribute(const dgGraphicalAttribute& attribute) { the_context.force(attribute); }
    void draw_primitive(const dgGraphicalPrimitive& primitive);
    void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans);

    /// in_view says that nothing of the run is to be left out.
    void draw_run(const dgPrimitiveRun& run, bool in_view = false);

    /// Whether something may be left out now, and what is shown where the drawing stands. What is drawn there may reach
    /// beyond its place by so many pixels, or by as many as the attributes in force say.
    bool culls() const { return the_culling && the_camera_known; }
    dgViewVolume volume(double reach = 0) const;

    /// Whether all runs that are drawn from now on are known to be in view, whole; answers what it was.
    bool all_in_view(bool known) { return std::exchange(the_all_in_view, known); }

    /// Draws a run by simplified levels with about count triangles; answers how many were, counting the share of what
    /// is out of view. 0, with nothing drawn, where there are no levels or they are switched off.
    int draw_simplified(const dgPrimitiveRun& run, int count);

    /// 1 when draw_simplified draws some runs.
    int simplifies() const;

    /// Draws a structure and all that it calls between begin and end, in a context of its own. A structure that is
    /// already being drawn is not entered again, so that cycles end.
    void draw_structure(const dgStructure& structure);

    /// The same through the render action, if one is installed.
    void draw_network(const dgStructure& structure);

    /// Draws the 12 edges of a structure's box in the current line attributes.
    void draw_bounding_box(const dgStructure& structure);

    /// Sends the attributes and the transform in force to the driver. Elements that draw by themselves call it first.
    void flush_state();

protected:
    void driver_begun() override;
    void driver_ends() override;
    void driver_ended() override;

private:
    friend class dgSelectedDriver;
    void draw_steps(const dgStructure& structure, bool through_action);
    double reach() const;
    bool find_seen(const dgPrimitiveRun& run);
    bool find_seen_texts(const dgPrimitiveRun& run);
    bool draw_coarsened(const dgPrimitiveRun& run, bool partly);
    bool out_of_view(const dgGraphicalPrimitive& primitive);
    bool see_through() const;
    dgSeeThrough& later();

    dgSelectedDriver* the_selected_drivers = nullptr; // the innermost of those that live
    int the_depth_cueing = 0;
    int the_accumulate = 0;
    giVector2 the_picture_shift{0, 0};
    int the_simplified_levels = 1;
    int the_idle_slicing_forbidden = 0;
    dgHLHSRMode the_hlhsr_mode = dgHLHSR_ZBUFFER;
    gsColour the_cue_colour{0, 0, 0};
    gsRenderAction* the_render_action = nullptr;
    dgDrawQuality the_draw_quality;
    dgPickSettings the_pick_settings;
    dgTextFontSlots the_text_fonts;
    dgColourTable the_colour_table;
    dgAttributeContext the_context;
    const dgCamera* the_camera = nullptr;
    int the_culling;
    bool the_all_in_view = false;
    bool the_camera_known = false; // what follows is of the driver's camera
    giXform3 the_world_to_clip;
    std::optional<giPlane> the_section;
    double the_port_width = 0, the_port_height = 0; // pixels
    std::vector<dgFeatureSpan> the_seen, the_seen_spans;
    const dgLooks* the_looks = nullptr;
    const dgStructure* the_looks_root = nullptr;
    std::unique_ptr<dgSeeThrough> the_see_through; // null until there is any
    int the_drew_see_through = 0;
    unsigned long long the_walk = 0; // through the networks being drawn, 0: none
};
