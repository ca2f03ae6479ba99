#pragma once

#include "grExport.h"
#include "grRubberBandIt.h"

class dgMultiline;
class dgRenderer;
class giPoint2;
class grRubberBandItem;

// Lines in device coordinates (pixels of the window, origin at its lower left) that are collected and then drawn over a
// renderer's window as one item. There is one set of pending lines and one item.

/// Add a line, or the four sides of a box whose corners are cut off to whole pixels, to the pending lines. Nothing
/// happens while suspended.
GR_EXPORT void gr_rubber_band_line(int x0, int y0, int x1, int y1);
GR_EXPORT void gr_rubber_band_box(const giPoint2& corner, const giPoint2& opposite);

/// Draws the pending lines as a new item, in place of the one before, which is dropped but not undrawn.
GR_EXPORT void gr_draw_rubber_banding(dgRenderer* renderer);
/// Takes the item off the screen and drops it with all pending lines.
GR_EXPORT void gr_undraw_rubber_banding();
/// Turning on undraws first; from then on these functions draw nothing. Independent of the manager's switch.
GR_EXPORT void gr_suspend_rubber_banding(int on);

/// What follows the cursor: 0 nothing, 1 a cross-hair over the whole window.
GR_EXPORT void gr_set_cursor_echo_type(int type, dgRenderer* renderer);
GR_EXPORT int gr_query_cursor_echo_type();
/// Moves the echo to a pixel.
GR_EXPORT void gr_cursor_echo(int x, int y, dgRenderer* renderer);
GR_EXPORT void gr_get_last_cursor_pos(int& x, int& y);

/// Draws the pending lines; the callback of the item.
GR_EXPORT void gr_draw_rubber_band_lines(grRubberBandItem* item, grRubberBandIt it);

/// Draws lines of the caller's own over a renderer's window, in the manager's colour and line width; for the callbacks
/// of other items.
GR_EXPORT void gr_draw_device_lines(dgRenderer* renderer, const dgMultiline& lines);
