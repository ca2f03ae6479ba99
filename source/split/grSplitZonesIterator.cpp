#include "grSplitZonesIterator.h"

grSplitZonesIterator::grSplitZonesIterator(const grSplitZones& zones, int lower, int upper) : the_zones(zones)
{
    zones.get_col_and_row(lower, the_low_col, the_row);
    zones.get_col_and_row(upper, the_high_col, the_high_row);
    the_col = the_low_col;
}

void grSplitZonesIterator::next()
{
    if (the_col++ < the_high_col)
        return;
    the_col = the_low_col;
    ++the_row;
}
