#pragma once

/// How finely a renderer draws, where a value is set: dgRenderer::set_in_pipeline_context, and for the length of a
/// twiddle grViewRefresher::draw_quality_overrides. By default nothing is set and everything is drawn as it is.
///
/// Rubber bands by exclusive or and identifier images are never drawn more coarsely. What the values mean to a driver
/// other than OpenGL's, and to elements that draw by themselves, is theirs to decide.
struct dgDrawQuality
{
    /// Device pixels by which surfaces may be off. Above 0, heavy blocks (2,048 triangles and more) of networks are
    /// drawn by the coarsest simplified level whose error looks no larger, as far as levels have been made by then. The
    /// error is estimated, as the sum of those of all simplifications. Curves and surfaces are kept as lines and
    /// triangles, so that nothing is made finer by it.
    int facet_tolerance_set = 0;
    double facet_tolerance = 0;

    /// Means nothing: polygons are kept as triangles, which are drawn as they are, and there is nothing to make again.
    int polygon_regeneration_set = 0;
    double polygon_regeneration = 0;

    /// 1 and more: filled letters, as without a value. Above 0: the outlines of the letters as single lines of one
    /// pixel. 0 and less: a box in place of each text, as wide as its lines and as high as its letters may be.
    int text_quality_set = 0;
    double text_quality = 0;

    bool operator==(const dgDrawQuality&) const = default;
};
