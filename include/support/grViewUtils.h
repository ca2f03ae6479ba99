#pragma once

#include "dgS.h"
#include "grExport.h"

class dgView;
class giBox2;
class giVector2;
class gwPositionalEvent;

/// Small operations on views, shared by the tools.
class GR_EXPORT grViewUtils
{
public:
    grViewUtils() = delete;

    /// Moves the picture of a view by a step in pixels, to the right and up.
    static void pan(dgView* view, const giVector2& pixels);

    /// The step in pixels that brings what is under the pointer to the middle of a view's viewport.
    static giVector2 step_to_centre(const dgView* view, const gwPositionalEvent& event);

    /// Moves the picture of a view so that what is under the pointer comes to the middle of the viewport.
    static void pan_centre(dgView* view, const gwPositionalEvent& event);

    /// Whether a device box is 2 pixels wide or high, or more: smaller ones come from clicks.
    static int box_can_be_zoomed_to(const giBox2& device_box);

    /// Zooms a view so that a device box fills it as far as its proportions allow; the corners may be in any order. A
    /// box that is less than 2 pixels wide and high, as after a click, changes nothing and gives 0.
    static int zoom_to_box(dgView* view, const giBox2& device_box);

    /// Removes a view from a list; answers whether it was there.
    static int remove_view(dgViewcoDList& views, dgView* view);
};
