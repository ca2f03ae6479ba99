#pragma once

#include "grExport.h"
#include "grRubberBandIt.h"
#include "grRubberBandMode.h"

#include <iosfwd>

class dgRenderer;
class dgView;
class grRubberBandItem;
class gsColour;

/// Keeps the list of live rubber-band items and decides, for each renderer, how they are drawn and taken off again.
///
/// An item is drawn over the scene by one of three techniques. In overlay planes it lies on a window of its own, which
/// is erased to take it off. By exclusive or its pixels are inverted, and drawing it again takes it off. In main planes
/// it is drawn like the scene, which is drawn again without it. A renderer with an overlay uses that; any other uses
/// main planes where redrawing was asked for and is fast enough, and else exclusive or.
///
/// All state belongs to the process. An application keeps one manager object, or several, for as long as it uses rubber
/// banding: the first one makes the list and puts every setting at its default, the last one drops the list.
class GR_EXPORT grRubberBandManager
{
public:
    grRubberBandManager();
    ~grRubberBandManager();
    grRubberBandManager(const grRubberBandManager&) = delete;
    grRubberBandManager& operator=(const grRubberBandManager&) = delete;

    // The list, in the order of addition. Items are not owned; the list may hold one twice.

    static void add(grRubberBandItem* item);
    /// Takes the item's first entry off the list, if it has one.
    static void remove(grRubberBandItem* item);
    static void clear();
    static int empty();
    static int item_in_list(const grRubberBandItem* item);
    /// Whether any item of the list is cancelled.
    static int items_cancelled();

    // Drawing.

    /// Draws or undraws an item, in the list or not, unless it is cancelled or rubber banding is suspended.
    static void draw(grRubberBandItem* item, grRubberBandIt it);
    /// Draws all items of a renderer that are not drawn, except one.
    static void redraw(dgRenderer* renderer);
    static void redraw(dgRenderer* renderer, const grRubberBandItem* except);
    /// Tells that the renderer's picture was erased, and the items with it: update will put them back.
    static void erased(dgRenderer* renderer);
    /// Bracket a redraw of the scene: temp_undraw takes the renderer's items off, update puts them back.
    static void temp_undraw(dgRenderer* renderer);
    static void update(dgRenderer* renderer);
    /// Cancel the items of a renderer or of a view that is about to be destroyed. Those of a view leave the overlay.
    static void to_be_deleted(dgRenderer* renderer);
    static void to_be_deleted(dgView* view);

    // How a renderer's items are drawn.

    static grRubberBandMode mode(dgRenderer* renderer);
    /// Whether items are taken off by drawing the scene again: the callback's answer, else that of the timed decision.
    static int rubber_band_via_redraw(dgRenderer* renderer);
    /// Asks the renderer whether it is in XOR mode and remembers both.
    static int renderer_in_xor_mode(dgRenderer* renderer);
    static int last_renderer_was_in_xor_mode();
    static int renderer_rubber_banding_in_main_planes(dgRenderer* renderer);
    /// For code that erases and renders by itself and asks before it does. The answer and the two results say what is
    /// left for it to do with the renderer's items:
    ///     answer 1, first 0, second 0    nothing: there is no overlay, and drawing the scene takes the items off and
    ///     is
    ///                                    what puts them back
    ///     answer 1, first 1, second 0    call temp_undraw before, as items were last drawn by exclusive or, and update
    ///                                    after it
    ///     answer 0, first 0, second 1    call update after it: items are elsewhere, or have gone with the picture
    ///     answer 0, first 0, second 0    nothing: there are no items, or do_redraw is off
    static int sort_out_rubber_banding_on_erase_and_render(dgRenderer* renderer, int& first, int& second);

    /// With calculate_colour_in_xor_mode, the colour that drawn in XOR mode over the background shows the wanted one;
    /// otherwise the wanted one. The background is that of the view in the lower left quarter of the renderer.
    static gsColour calculate_xor_colour(dgRenderer* renderer, const gsColour& wanted);

    // Settings. The first manager puts them at the defaults named here.

    /// Whether redrawing views takes items off and puts them back; 1 by default. An application that redraws its views
    /// itself and does so for its items switches it off.
    static int do_redraw();
    static void do_redraw(int on);

    /// Whether items are taken off by drawing the scene again, where there is no overlay and it is drawn fast enough; 0
    /// by default.
    static int rubber_band_via_redraw();
    static void rubber_band_via_redraw(int on);
    /// A function that answers in place of the manager whether a renderer is drawn again, and is handed the data.
    /// Unless it is null it also turns rubber_band_via_redraw on.
    static void set_redraw_callback(int (*callback)(dgRenderer*, void*), void* data);
    /// A renderer is fast enough when its frames take less than 1 / minimum_framerate on average, 20 a second by
    /// default; one that was not is tried again slow_retry_time seconds after its last frame, 30 by default.
    static double minimum_framerate();
    static void minimum_framerate(double frames_per_second);
    static double slow_retry_time();
    static void slow_retry_time(double seconds);

    /// The colour of the procedural lines and of items that ask for it; white by default. By exclusive or white inverts
    /// what is under it, and any other colour changes it in part.
    static gsColour rubber_band_colour();
    static void rubber_band_colour(const gsColour& colour);
    /// Whether structures are drawn in that colour in XOR mode instead of their own; 0 by default.
    static int set_default_colour_in_xor_mode();
    static void set_default_colour_in_xor_mode(int on);
    /// Whether colours in XOR mode are those that show the wanted one over the background; 0 by default.
    static int calculate_colour_in_xor_mode();
    static void calculate_colour_in_xor_mode(int on);
    /// Whether an item of a view inverts each pixel once only, even where its lines overlap; 1 by default. Needs a
    /// stencil; callback items do without.
    static int xor_mode_with_stencil_planes();
    static void set_xor_mode_with_stencil_planes(int on);
    /// Width of the procedural lines in pixels; 1 by default.
    static int rubber_band_line_width();
    static void rubber_band_line_width(int pixels);

    /// While suspended, draw does nothing, be it to draw or to undraw; 0 by default.
    static void suspend_rubber_banding(int on);

    static void print(std::ostream& os);

protected:
    /// Puts the renderer's items back after one of them was taken off by other means than XOR. Unless that was erasing
    /// the overlay, the renderer's canvas draws the scene again first.
    static void redraw_all_that_are_drawn(dgRenderer* renderer, int overlay);

private:
    friend class grRubberBandItem;
    struct DrawModes
    {
        bool xor_mode = false;
        bool overlay = false;
    };
    static DrawModes start_draw(dgRenderer* renderer, bool select_driver);
    static void end_draw(dgRenderer* renderer, bool xor_mode, bool select_driver);
    static void temp_undraw_by_xor(dgRenderer* renderer);
    static bool redraws_main_planes(dgRenderer* renderer);
    static bool redraws_fast_enough(dgRenderer* renderer);
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grRubberBandManager& manager);
