#include "grSplitZones.h"

#include "grSplitUtils.h"

#include <algorithm>
#include <cmath>

namespace
{
// The cell of n equal ones between low and high that a position lies in, the nearest one from outside.
int cell_of(double position, double low, double high, int n)
{
    const double share = high > low ? (position - low) / (high - low) : 0;
    return static_cast<int>(std::clamp(std::floor(share * n), 0.0, n - 1.0));
}

double edge_of(double low, double high, int cell, int n)
{
    return cell == n ? high : low + (high - low) * cell / n;
}
}

grSplitZones::grSplitZones(const giBox3& model_box, double n) : the_box(model_box)
{
    const double aspect = the_box.height() > 0 ? the_box.width() / the_box.height() : 1;
    grSplitUtils::find_zone_layout(n, aspect, the_rows, the_cols);
    the_rows = std::max(the_rows, 1);
}

giBox3 grSplitZones::zone_box(int zone) const
{
    return merge(zone, zone);
}

void grSplitZones::get_col_and_row(int zone, int& col, int& row) const
{
    col = zone % the_cols;
    row = zone / the_cols;
}

int grSplitZones::zone(const giBox3& box, int& lower, int& upper) const
{
    if (!box.overlap(the_box))
        return 0;
    const auto zone_at = [this](const giPoint3& p)
    {
        return cell_of(p.y(), the_box.low().y(), the_box.high().y(), the_rows) * the_cols +
               cell_of(p.x(), the_box.low().x(), the_box.high().x(), the_cols);
    };
    lower = zone_at(box.low());
    upper = zone_at(box.high());
    return 1;
}

giBox3 grSplitZones::merge(int lower, int upper) const
{
    int low_col, low_row, high_col, high_row;
    get_col_and_row(lower, low_col, low_row);
    get_col_and_row(upper, high_col, high_row);
    const giPoint3 &low = the_box.low(), &high = the_box.high();
    return giBox3(
        giPoint3(edge_of(low.x(), high.x(), low_col, the_cols), edge_of(low.y(), high.y(), low_row, the_rows), low.z()),
        giPoint3(edge_of(low.x(), high.x(), high_col + 1, the_cols), edge_of(low.y(), high.y(), high_row + 1, the_rows),
                 high.z()));
}
