#pragma once

/// Quality of drawing that a renderer has in force. Each value acts only where its flag is set.
struct dgDrawQuality
{
    int facet_tolerance_set = 0;
    double facet_tolerance = 0; ///< device pixels
    int polygon_regeneration_set = 0;
    double polygon_regeneration = 0;
    int text_quality_set = 0;
    double text_quality = 0;
};
