#pragma once

class dgRenderer;
class giBox2;
class grCanvas;

// What rubber banding needs of the canvases. Defined beside them, above it.

/// The canvas that owns a renderer, or null.
grCanvas* gr_find_canvas(dgRenderer* renderer);

/// Erases and renders the views of a canvas that meet a device box.
void gr_erase_and_render_views(grCanvas& canvas, const giBox2& box, int erase, int render);
