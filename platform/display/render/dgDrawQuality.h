#pragma once

/// Quality of drawing that a renderer carries for elements that draw by themselves; its drivers do not read it.
struct dgDrawQuality
{
    int facet_tolerance_set = 0;
    double facet_tolerance = 0; ///< device pixels
    int polygon_regeneration_set = 0;
    double polygon_regeneration = 0; ///< triangles are drawn as they are kept, so that it means nothing to them
    int text_quality_set = 0;
    double text_quality = 0;
};
