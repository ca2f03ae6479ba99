#pragma once

#include "dgExport.h"
#include "dgGeometry.h"
#include "dgRunSampling.h"

#include <deque>
#include <memory>
#include <vector>

class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgStructure;

/// What a driver keeps beside a run; deleted with it.
class DG_EXPORT dgRunCache
{
public:
    virtual ~dgRunCache();
};

/// Successive primitives of one topology under one state, drawn together.
struct DG_EXPORT dgPrimitiveRun
{
    dgTopology topology = dgTOPOLOGY_POINTS;
    int has_normals = 0;
    std::vector<const dgGraphicalPrimitive*> primitives; ///< in drawing order, not counted: their structure holds them

    /// Grows whenever one of the primitives was changed in place.
    unsigned long long stamp = 0;

    /// How the run is sampled and its number of features; made when first asked for after a change.
    const dgRunSampling& sampling() const;

    mutable std::unique_ptr<dgRunSampling> sampling_cache;
    mutable std::unique_ptr<dgRunCache> cache;
    mutable const void* cache_owner = nullptr; ///< the driver's store that made the cache

    dgPrimitiveRun() = default;
    ~dgPrimitiveRun();
    dgPrimitiveRun(const dgPrimitiveRun&) = delete;
    dgPrimitiveRun& operator=(const dgPrimitiveRun&) = delete;
};

/// A structure's elements as the renderer executes them: runs of primitives between the elements that change state.
///
/// Geometry itself is kept per primitive by the drivers, so that making this again after an insertion costs one walk
/// over the elements and copies no coordinates.
class DG_EXPORT dgCompiledStructure
{
public:
    explicit dgCompiledStructure(const dgStructure& structure);
    ~dgCompiledStructure();

    /// Either an element that is executed by itself, or a run.
    struct Step
    {
        const dgGraphicalElement* element; ///< null for a run
        const dgPrimitiveRun* run;
    };

    const std::vector<Step>& steps() const { return the_steps; }

    /// Content stamp of the structure that this was made from.
    unsigned long long content_stamp() const { return the_content_stamp; }

    /// Bracket a drawing. enter answers 0 while one is under way already.
    int enter() { return the_entered ? 0 : (the_entered = 1); }
    void leave() { the_entered = 0; }

    /// A primitive of the structure was changed in place.
    void primitive_changed(unsigned long long stamp);

private:
    std::vector<Step> the_steps;
    std::deque<dgPrimitiveRun> the_runs;
    unsigned long long the_content_stamp;
    int the_entered = 0;
};
