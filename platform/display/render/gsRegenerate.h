#pragma once

/// Three overridable drawing values, each with a flag that says whether it is enabled: facet tolerance, polygon
/// regeneration and text quality.
class gsRegenerate
{
public:
    /// A value, and whether it is used in place of the one in force: 0 or 1.
    struct Override
    {
        int enabled;
        double value;
    };

    /// All three start with the same value and flag.
    gsRegenerate(double value, int enabled)
        : facet_tolerance{enabled, value}, polygons{enabled, value}, text{enabled, value}
    {}

    Override facet_tolerance;
    Override polygons;
    Override text;

    int any_enabled() const { return facet_tolerance.enabled || polygons.enabled || text.enabled; }
};
