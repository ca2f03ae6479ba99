#pragma once

/// How finely the edges in a window are smoothed.
struct gwAAFormat
{
    int samples = 0; ///< of a pixel; 0 and 1 smooth nothing

    friend bool operator==(const gwAAFormat& a, const gwAAFormat& b) { return a.samples == b.samples; }
};
