#pragma once

/// How views are redrawn while they move.
enum vwRefresher
{
    vwREFRESHER_FAST = 0,   ///< thinned to a frame rate, completed when the hand rests
    vwREFRESHER_FULL = 1,   ///< everything on every frame
    vwREFRESHER_TIMEOUT = 2 ///< within the time of a frame, element by element
};
