#pragma once

#include "giBox3.h"
#include "grExport.h"

/// A grid of equal zones over a model box, seen along z. Zones are numbered row by row from the low corner; all have
/// the z range of the model.
class GR_EXPORT grSplitZones
{
public:
    /// About n zones, at least one, as square as they can be. The box is not empty.
    grSplitZones(const giBox3& model_box, double n);

    int num_rows() const { return the_rows; }
    int num_cols() const { return the_cols; }
    int num_zones() const { return the_rows * the_cols; }
    giBox3 zone_box(int zone) const;
    void get_col_and_row(int zone, int& col, int& row) const;
    /// Sets the zones at the lower and upper corner of the range that a box meets, and returns 1; returns 0 for a box
    /// outside the model.
    int zone(const giBox3& box, int& lower, int& upper) const;
    /// The box of all zones of the range between two corners.
    giBox3 merge(int lower, int upper) const;

private:
    giBox3 the_box;
    int the_rows = 1;
    int the_cols = 1;
};
