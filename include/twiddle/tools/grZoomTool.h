#pragma once

#include "giBox2.h"
#include "giPoint2.h"
#include "giVector2.h"
#include "grStdViewTwiddleTool.h"

/// Zooms a view by vertical drag: up comes closer. Half the height of the renderer is a factor of 1000, which is also
/// the limit; back at the press point the view is as it was.
///
/// With the argument "and_pan_centre" a click without any mouse event moves what is under the pointer to the middle of
/// the view. The resource "invert_zoom" reverses the drag of all zoom tools; it is read once in a process.
class GR_EXPORT grZoomTool : public grStdViewTwiddleTool
{
public:
    grZoomTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grZoomTool, grTwiddleTool);

protected:
    /// Zooms the target view by the drag up to the event.
    virtual void zoom_action(const gwMouseEvent& event) const;
    /// Moves the world point under the event to the middle of the target view.
    virtual void pan_centre_action(const gwKeyEvent& event) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Zooms a view from the view window it had at the start; drag is the press point less the current one, in pixels.
    static void zoom_view(dgView* view, const giBox2& start_window, const giVector2& drag);

    const giPoint2& start_point() const { return the_start_point; }
    const giBox2& start_window() const { return the_start_window; }

    static int the_invert_zoom;
    static int the_invert_zoom_read; // 1 once a tool has read the resource

private:
    giPoint2 the_start_point; // device
    giBox2 the_start_window;  // view window of the target
    int the_moved = 0;
};
