#pragma once

#include "dgExport.h"

#include <vector>

struct dgPrimitiveRun;

/// Successive features of a run. They are numbered from 0 through all primitives of the run; inside a primitive they
/// have the order in which the driver stores them.
struct dgFeatureSpan
{
    int first;
    int count;
};

/// An order of a run's features of which every first part, however long, is an even sample of the run.
///
/// Features are taken in units of neighbours, which lie together for the driver: chunks of a large primitive, or
/// several small primitives that follow on each other. The places of the units follow the golden section, behind those
/// of the large triangles of blocks.
class DG_EXPORT dgRunSampling
{
public:
    /// Triangles of a block that are taken together.
    static constexpr int chunk_triangles = 256;

    explicit dgRunSampling(const dgPrimitiveRun& run);

    /// Number of features of the run.
    int features() const { return the_features; }

    /// Whether the run is taken or left as a whole: it has no more than one unit.
    int indivisible() const { return the_units.size() < 2; }

    /// Features of a run that is certainly indivisible, -1 where sampling it must tell; takes no memory.
    static int features_if_indivisible(const dgPrimitiveRun& run);

    /// Appends, in drawing order, the features whose places in the sampling order are first to end - 1.
    void sample(int first, int end, std::vector<dgFeatureSpan>& spans) const;

    /// Stamp of the run that this belongs to.
    unsigned long long run_stamp() const { return the_run_stamp; }

private:
    struct Unit
    {
        int count;
        int place; // features before it in the sampling order
    };
    std::vector<Unit> the_units; // in drawing order
    int the_features = 0;
    unsigned long long the_run_stamp;
};

/// The k-th of a sequence of numbers from 0 to 1 that lie evenly spread however many are taken.
DG_EXPORT double dg_even_sequence(unsigned k);
