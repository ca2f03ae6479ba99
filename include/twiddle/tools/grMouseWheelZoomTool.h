#pragma once

#include "grStdViewTwiddleTool.h"

/// Zooms a view by one step of the mouse wheel; started and ended within the one wheel event.
///
/// The settings are process-wide. The first tool with a resource database reads them; an absent or unusable value
/// leaves the default:
///     mouse_wheel_zoom_disable         yes/no, no     steps do nothing
///     mouse_wheel_zoom_centre          yes/no, yes    zoom about the middle of the view, not about the pointer
///     mouse_wheel_zoom_increment       number, 0.1    share by which one step zooms, above -1 and below 1
///     mouse_wheel_zoom_ctl_multiplier  number, 5      multiplies a step while control is held, above 0
///     mouse_wheel_delay                seconds, 0.2   a step this soon after a zoom or pan-centre tool is ignored
///     invert_zoom                      yes/no, no     reverses the wheel
///     mouse_wheel_zoom_out_centre      yes/no, no     when zooming about the pointer, zoom out about the middle
///     mouse_wheel_zoom_reversible      yes/no, no     a step out is the exact inverse of a step in
///     mouse_wheel_zoom_proportional    yes/no, no     an event zooms by its share of a step, or by its many steps, and
///                                                     not by one step whatever its travel
class GR_EXPORT grMouseWheelZoomTool : public grStdViewTwiddleTool
{
public:
    grMouseWheelZoomTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    /// Reads the process-wide settings again; null gives the defaults.
    static void reread_resources(const gwResourceDB* db);

    UT_DECLARE_TYPE(grMouseWheelZoomTool, grTwiddleTool);

protected:
    /// Zooms; 1 when the view changed.
    virtual int do_action(const gwKeyEvent& event) const;

    void start_twiddle(const gwKeyEvent& event) override;

    /// All that comes before the action; 0 when the step is to be ignored.
    int start_wheel_step(const gwKeyEvent& event);

    using grStdViewTwiddleTool::target_view;
    /// The view under the pointer, or null.
    static dgView* target_view(const gwKeyEvent& event);

    /// Reads the settings unless that was done before.
    static void read_resources(const gwResourceDB* db);

    /// Zooms a view by one wheel event, with the position of the pointer measured against the viewport of another one
    /// (or the same). 1 when the view changed: a travel of the wheel below 0.001 steps is ignored.
    static int zoom_and_pan(dgView* zoomed, dgView* measured, const gwKeyEvent& event);
};
