#pragma once

#include "dgBase.h"
#include "dgEnums.h"
#include "grExport.h"
#include "grRubberBandIt.h"
#include "grRubberBandItemState.h"
#include "grRubberBandItemType.h"
#include "grRubberBandSelectDriver.h"

#include <iosfwd>

class dgRenderer;
class dgView;

/// One transient thing that can be drawn over a scene and taken off again.
///
/// Counted: whoever makes an item references it; the manager's list does not. Items are drawn through
/// grRubberBandManager::draw, and by the manager when the scene under them is redrawn.
class GR_EXPORT grRubberBandItem : public dgBase
{
public:
    /// Takes the item out of the manager's list, should it still be there.
    ~grRubberBandItem() override;

    virtual grRubberBandItemType type() const = 0;

    /// Draws an item that is not drawn, or undraws one that is; otherwise only the driver is selected and restored.
    virtual void draw(grRubberBandIt it, grRubberBandSelectDriver select) = 0;

    /// Called around each drawing: hidden lines and surfaces are shown meanwhile.
    virtual void turn_off_hlhsr();
    virtual void turn_on_hlhsr();

    /// Called around each drawing of an item of a view; xor_mode says whether it inverts pixels. With the manager's
    /// xor_mode_with_stencil_planes and an OpenGL driver they see to it that each pixel is inverted once only.
    virtual void before_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view);
    virtual void after_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view);
    virtual void before_end(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view);
    virtual void after_end(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view);

    virtual void print(std::ostream& os) const;

    dgRenderer* renderer() const { return the_renderer; }
    grRubberBandItemState state() const { return the_state; }
    void* user_data() const { return the_user_data; }

    /// Whether the renderer or the view has been destroyed: the item is never drawn again.
    int cancelled() const { return the_cancelled; }

    /// Records a drawing that was done by other means. Undrawing changes the state of a drawn item alone.
    void set_draw_state(grRubberBandIt it, grRubberBandSelectDriver select);

    /// Whether hidden-line and hidden-surface removal is off while the item is drawn, which is the default.
    void set_turn_off_hlhsr(int on) { the_turn_off_hlhsr = on; }

    /// Number of items that exist.
    static int instance_count();

    UT_DECLARE_TYPE(grRubberBandItem, dgBase);

protected:
    /// The renderer is not owned and must outlive the item, or grRubberBandManager::to_be_deleted be told. user_data
    /// belongs to the caller.
    grRubberBandItem(dgRenderer* renderer, void* user_data);
    grRubberBandItem(const grRubberBandItem&) = delete;
    grRubberBandItem& operator=(const grRubberBandItem&) = delete;

    void cancel() { the_cancelled = 1; }

    /// What draw does in every class.
    void draw_by_protocol(grRubberBandIt it, grRubberBandSelectDriver select);

    /// Draws once, with all that belongs to one drawing.
    virtual void execute(grRubberBandIt it, int xor_mode) = 0;

private:
    friend class grRubberBandManager;
    void execute_without_hlhsr(grRubberBandIt it, int xor_mode);
    void undraw_by_redraw(bool overlay);

    dgRenderer* the_renderer;
    grRubberBandItemState the_state = grUNDRAWN_RUBBER_BAND_ITEM;
    void* the_user_data;
    int the_cancelled = 0;

protected:
    int the_turn_off_hlhsr = 1;
    int the_have_turned_off_hlhsr = 0;
    dgHLHSRMode the_saved_hlhsr_mode = dgHLHSR_OFF; ///< the mode before it was switched off

private:
    bool the_renderer_is_gone = false;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grRubberBandItem& item);
