#pragma once

#include "dgDrawQuality.h"
#include "dgDrawState.h"
#include "dgEnums.h"
#include "dgExport.h"
#include "dgPickSettings.h"
#include "dgRef.h"
#include "giBox2.h"
#include "giXform3.h"
#include "gsColour.h"

#include <array>
#include <map>
#include <memory>
#include <vector>

class dgCamera;
class dgDriver;
class dgGraphicalAttribute;
class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgSelectedDriver;
class dgStructure;
class dgTextFont;
class dgWindow;
class gsRenderAction;
class gwWindow;
struct dgFeatureSpan;
struct dgImage;
struct dgPrimitiveRun;

/// Draws views on a window through a driver, and on its overlay if there is one. Owned by the application.
class DG_EXPORT dgRenderer
{
public:
    /// The windows are not owned. Without an overlay both are the same. input_window is what events name, or null.
    dgRenderer(dgWindow* main, dgWindow* overlay, const gwWindow* input_window = nullptr);
    ~dgRenderer();
    dgRenderer(const dgRenderer&) = delete;
    dgRenderer& operator=(const dgRenderer&) = delete;

    /// 0 the main window, 1 the overlay; equal when there is no overlay.
    dgWindow* window(int index) const { return the_windows[index]; }
    const gwWindow* input_window() const { return the_input_window; }

    /// Device box of the main window, low and high pixels included.
    giBox2 window_box() const;

    /// The driver of an index, made on first request: 0 normal, 1 rubber bands, -1 the current one.
    dgDriver* driver(int index = -1) const;

    /// Makes a driver the current one; 1 on success.
    int select_driver(int index);
    int current_driver_index() const { return the_current_driver; }

    /// 1 when what is drawn is combined with what is there by exclusive or: driver 1 where there is no overlay.
    int in_xor_mode() const;

    /// Choose and exchange colour buffers; nothing happens on a single-buffered renderer.
    void select_buffer(dgDoubleBuffer buffer);
    void swap_buffers(dgDoubleBufferSwap mode);

    /// 1 when a mode, or any mode for -1, has the capability. The last argument is ignored.
    int driver_capability(int mode, dgDriverCapability capability, int ignored = 0) const;
    int mode() const { return the_mode; }
    void mode(int mode) { the_mode = mode; }

    int depth_cueing() const { return the_depth_cueing; }
    void depth_cueing(int on) { the_depth_cueing = on; }

    /// What far things fade to under depth cueing.
    void cue_colour(const gsColour& colour) { the_cue_colour = colour; }

    /// Clears a window: 0 the main one to the background colour, 1 the overlay to nothing.
    void erase(int window);

    gsColour background_colour() const { return the_background; }
    void background_colour(const gsColour& colour) { the_background = colour; }

    /// Confines what is erased and drawn on the main window to a device box, low and high pixels included; an empty box
    /// lifts it. The picture inside is the same as without.
    void clip(const giBox2& device_box);

    /// Bracket immediate drawing under a camera, which is set before or inside and is forgotten at the end. They nest;
    /// the outermost pair acts.
    void begin();
    void end();
    void set_camera(const dgCamera* camera);

    /// Camera 0 is the one set last; there are no others.
    void select_camera(int index);

    dgHLHSRMode hlhsr_mode() const { return the_hlhsr_mode; }
    void set_hlhsr_mode(dgHLHSRMode mode) { the_hlhsr_mode = mode; }

    /// Installs the action that sees the primitives of the next network drawings, in place of any other; null removes
    /// it. Not owned. An action that is destroyed removes itself.
    void render_action(gsRenderAction* action);
    gsRenderAction* render_action() const { return the_render_action; }

    const dgDrawQuality& get_pipeline_draw_quality() const { return the_draw_quality; }

    /// Copies the record; null puts the default back.
    void set_in_pipeline_context(const dgDrawQuality* quality);

    /// The font of a numbered slot, from 0 without a limit; null when the slot is free.
    dgTextFont* get_text_font(int slot) const;

    /// References the font in place of the one before; null clears the slot.
    void set_text_font(dgTextFont* font, int slot);

    /// Whether frames are accumulated for smooth edges.
    int accumulate() const { return the_accumulate; }
    void accumulate(int on) { the_accumulate = on; }

    /// Whether refreshers must not draw slices in idle time.
    int idle_slicing_forbidden() const { return the_idle_slicing_forbidden; }
    void idle_slicing_forbidden(int on) { the_idle_slicing_forbidden = on; }

    const dgPickSettings& pick_settings() const { return the_pick_settings; }
    void pick_settings(const dgPickSettings& settings) { the_pick_settings = settings; }

    /// Open and close one level of attribute context; a pop restores the attributes and the transform exactly.
    void push_structure();
    void pop_structure();

    /// Execute one element between begin and end: an attribute is applied, a primitive drawn.
    void execute(const dgGraphicalElement& element);
    void set_attribute(const dgGraphicalAttribute& attribute);
    void draw_primitive(const dgGraphicalPrimitive& primitive);
    void draw_run(const dgPrimitiveRun& run);
    void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans);

    /// The attribute of a type code that was set in the present context, or null where the default holds.
    const dgGraphicalAttribute* attribute(int type) const { return the_attributes[type]; }

    /// From the coordinates of the present context to world space.
    const giXform3& transform() const { return the_transform; }

    /// Draws a structure and all that it calls between begin and end, in a context of its own. A structure that is
    /// already being drawn is not entered again, so that cycles end.
    void draw_structure(const dgStructure& structure);

    /// The same through the render action, if one is installed.
    void draw_network(const dgStructure& structure);

    /// Draws the 12 edges of a structure's box in the current line attributes.
    void draw_bounding_box(const dgStructure& structure);

    /// Sends the attributes and the transform in force to the driver. Elements that draw by themselves call it first.
    void flush_state();

    /// Reads the selected buffer inside a device box.
    void read_pixels(const giBox2& device_box, dgImage& image);

    /// Waits until everything is drawn.
    void finish();

private:
    struct Undo
    {
        int type;
        const dgGraphicalAttribute* attribute;
    };
    struct Level
    {
        std::size_t undo_mark;
        giXform3 transform;
    };
    friend class dgSelectedDriver;
    void draw_steps(const dgStructure& structure, int through_action);

    dgWindow* the_windows[2];
    const gwWindow* the_input_window;
    mutable std::unique_ptr<dgDriver> the_drivers[2];
    int the_current_driver = 0;
    dgSelectedDriver* the_selected_drivers = nullptr; // the innermost of those that live
    int the_mode = 0;
    int the_depth_cueing = 0;
    int the_accumulate = 0;
    int the_idle_slicing_forbidden = 0;
    int the_begun = 0;
    dgHLHSRMode the_hlhsr_mode = dgHLHSR_ZBUFFER;
    gsColour the_background{0, 0, 0};
    gsColour the_cue_colour{0, 0, 0};
    gsRenderAction* the_render_action = nullptr;
    dgDrawQuality the_draw_quality;
    dgPickSettings the_pick_settings;
    std::map<int, dgRef<dgTextFont>> the_text_fonts; // by slot
    const dgCamera* the_camera = nullptr;

    // The context: attributes that were set, null where the default holds; undone level by level.
    std::array<const dgGraphicalAttribute*, dgTYPE_LAST_ATTRIBUTE + 1> the_attributes{};
    std::vector<Undo> the_undo;
    std::vector<Level> the_levels;
    giXform3 the_transform;
    int the_state_changed = 1;
    int the_transform_changed = 1;
};
