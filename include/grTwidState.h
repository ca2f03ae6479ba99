#pragma once

/// Where a twiddle, or what takes part in one, is in its life.
enum grTwidState : int
{
    grTWID_NOT_STARTED = 0,
    grTWID_TWIDDLING = 1,
    grTWID_ENDED = 2 ///< a tool may still act on idle events, as a spinning trackball does
};
