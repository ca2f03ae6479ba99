#pragma once

#include "dgDrawQuality.h"
#include "dgExport.h"
#include "dgRef.h"

#include <optional>

class dgRenderer;
class dgStructure;

/// Readies a flat structure for a full-quality draw, and puts its state back at the end of its life.
///
/// Drawings that begin at the structure meanwhile have the quality given, whatever is set in the renderer before or
/// during them. What the driver keeps of its primitives is made when the object is, so that a drawing that is timed
/// afterwards takes nothing but drawing.
class DG_EXPORT gsFullQuality
{
public:
    /// The structure is referenced. Only its own primitives are made ready, not those of what it calls.
    gsFullQuality(dgStructure& structure, dgRenderer& renderer, const dgDrawQuality& quality);
    ~gsFullQuality();
    gsFullQuality(const gsFullQuality&) = delete;
    gsFullQuality& operator=(const gsFullQuality&) = delete;

    /// Has a renderer's driver make what it keeps of a structure's own primitives, between begin and end.
    static void make_ready(const dgStructure& structure, dgRenderer& renderer);

private:
    dgRef<dgStructure> the_structure;
    std::optional<dgDrawQuality> the_quality_before;
};
