#pragma once

/// How what is drawn over the scene is taken off again.
enum vwRubberBanding
{
    vwRUBBER_BAND_OVERLAY = 0, ///< it lies in an overlay, which is erased
    vwRUBBER_BAND_XOR = 1,     ///< it is drawn by exclusive or, and drawn again
    vwRUBBER_BAND_REDRAW = 2   ///< the scene is drawn again, where that is fast; else as XOR
};
