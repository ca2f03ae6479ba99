#pragma once

#include "grExport.h"
#include "grSplitZones.h"

/// Walks over the zones of a range, row by row: for (grSplitZonesIterator it(zones, lower, upper); it.valid();
/// it.next()).
class GR_EXPORT grSplitZonesIterator
{
public:
    /// All zones; the grid must outlive the walk.
    explicit grSplitZonesIterator(const grSplitZones& zones) : grSplitZonesIterator(zones, 0, zones.num_zones() - 1) {}
    /// The zones between two corners, both included.
    grSplitZonesIterator(const grSplitZones& zones, int lower, int upper);

    int valid() const { return the_row <= the_high_row; }
    int zone() const { return the_row * the_zones.num_cols() + the_col; }
    void next();

private:
    const grSplitZones& the_zones;
    int the_low_col = 0, the_high_col = 0, the_high_row = 0;
    int the_col = 0, the_row = 0;
};
