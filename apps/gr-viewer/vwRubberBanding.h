#pragma once

/// How what is drawn over the scene is taken off again.
enum vwRubberBanding
{
    vwRUBBER_BAND_BY_RESOURCES = 0, ///< in an overlay, or as the resources say
    vwRUBBER_BAND_OVERLAY = 1,      ///< it lies in an overlay, which is erased
    vwRUBBER_BAND_XOR = 2,          ///< it is drawn by exclusive or, and drawn again
    vwRUBBER_BAND_REDRAW = 3        ///< the scene is drawn again, where that is fast; else as XOR
};
