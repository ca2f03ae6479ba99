#pragma once

#include "dgExport.h"
#include "dgGeometry.h"
#include "dgRunBounds.h"
#include "dgRunCache.h"
#include "dgRunSampling.h"

#include <memory>
#include <vector>

class dgGraphicalPrimitive;

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

    /// Its number of features, for a small run without a look at how it is sampled.
    int features() const { return small_features() < 0 ? sampling().features() : the_small_features; }

    /// Number of features of a run that is certainly indivisible, -1 where sampling it must tell.
    int small_features() const
    {
        if (the_small_features == not_counted)
            the_small_features = dgRunSampling::features_if_indivisible(*this);
        return the_small_features;
    }

    /// Where its primitives lie; made when first asked for.
    const dgRunBounds& bounds() const;

    /// A primitive of that number, counted from the first one of the run, was changed in place.
    void primitive_changed(int primitive, unsigned long long changed_stamp);

    mutable std::unique_ptr<dgRunBounds> bounds_cache;
    mutable std::unique_ptr<dgRunSampling> sampling_cache;
    mutable std::unique_ptr<dgRunCache> cache;
    mutable const void* cache_owner = nullptr; ///< the driver's store that made the cache

    const unsigned long long number; ///< no other run of the process has it

    /// How many runs have gone so far.
    static unsigned long long gone();

    dgPrimitiveRun();
    ~dgPrimitiveRun();
    dgPrimitiveRun(const dgPrimitiveRun&) = delete;
    dgPrimitiveRun& operator=(const dgPrimitiveRun&) = delete;

private:
    static constexpr int not_counted = -2;
    mutable int the_small_features = not_counted;
};
