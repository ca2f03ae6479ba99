#include "grSplitBlock.h"

#include <cmath>
#include <numbers>
#include <ostream>

int grSplitBlock::the_minimum_overview_total = 1000;
double grSplitBlock::the_overview_dominance = 0.9;
double grSplitBlock::the_overview_minority = 0.1;
double grSplitBlock::the_point_zoom_dominance = 0.6;
double grSplitBlock::the_point_zoom_minority = 0.1;
double grSplitBlock::the_stubby_dominance = 0.9;
double grSplitBlock::the_stubby_minority = 0.1;
double grSplitBlock::the_stubbyness_limit = 0.1;

namespace
{
// These two cannot be set.
constexpr double thin_dominance = 0.5;
constexpr double thin_minority = 0.2;

constexpr int counted = 2; // state of a block with no zone pending

enum Side
{
    UPPER,
    LOWER,
    NEITHER
};

Side dominant(int upper, int lower, int total, double dominance, double minority)
{
    // Cut off to whole pixels: with few pixels the minority limit is 0, and nobody dominates.
    const int high = static_cast<int>(dominance * total);
    const int low = static_cast<int>(minority * total);
    if (upper > lower)
        return upper > high && lower < low ? UPPER : NEITHER;
    return lower > high && upper < low ? LOWER : NEITHER;
}

int decide(grBlockVisClass& vis, grBlockDiagClass& diag, grBlockVisClass new_vis, grBlockDiagClass new_diag)
{
    vis = new_vis;
    diag = new_diag;
    return 1;
}
}

void grSplitBlock::add_overview_counts(int upper, int lower, int alone, int zone)
{
    the_upper_count_overview += upper;
    the_lower_count_overview += lower;
    the_alone_count_overview += alone;
    the_pending_zones.remove(zone);
    if (the_pending_zones.empty())
        the_state = counted;
}

void grSplitBlock::set_point_zoom_counts(int upper, int lower, int alone)
{
    the_upper_count_point_zoom = upper;
    the_lower_count_point_zoom = lower;
    the_alone_count_point_zoom = alone;
}

void grSplitBlock::set_block_zoom_counts(int upper, int lower, int alone, int width, int height)
{
    the_upper_count_block_zoom = upper;
    the_lower_count_block_zoom = lower;
    the_alone_count_block_zoom = alone;
    // Of a zoom without extent this is no number, which counts as thin.
    const double mean_square = (static_cast<double>(width) * width + static_cast<double>(height) * height) * 0.5;
    the_stubbyness = alone / (std::sqrt(mean_square) * 2 * std::numbers::pi * 4);
}

int grSplitBlock::point_zoom_test_pending() const
{
    grBlockVisClass vis;
    grBlockDiagClass diag;
    return the_alone_count_point_zoom < 0 &&
           !classify_overview(the_upper_count_overview, the_lower_count_overview, the_alone_count_overview, vis, diag);
}

int grSplitBlock::classify_overview(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag)
{
    switch (dominant(upper, lower, total, the_overview_dominance, the_overview_minority))
    {
    case UPPER: return decide(vis, diag, grVIS_UPPER, grDIAG_OVERVIEW_UPPER);
    case LOWER: return decide(vis, diag, grVIS_LOWER, grDIAG_OVERVIEW_LOWER);
    case NEITHER: break;
    }
    return total < the_minimum_overview_total ? 0 : decide(vis, diag, grVIS_BOTH, grDIAG_OVERVIEW_NEITHER);
}

int grSplitBlock::classify_point_zoom(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag)
{
    if (total != 0)
        switch (dominant(upper, lower, total, the_point_zoom_dominance, the_point_zoom_minority))
        {
        case UPPER: return decide(vis, diag, grVIS_UPPER, grDIAG_POINT_ZOOM_UPPER);
        case LOWER: return decide(vis, diag, grVIS_LOWER, grDIAG_POINT_ZOOM_LOWER);
        case NEITHER: break;
        }
    return decide(vis, diag, grVIS_UNDECIDED, grDIAG_POINT_ZOOM_NEITHER);
}

int grSplitBlock::classify_block_zoom(int upper, int lower, int total, double stubbyness, grBlockVisClass& vis,
                                      grBlockDiagClass& diag)
{
    if (stubbyness > the_stubbyness_limit)
    {
        switch (dominant(upper, lower, total, the_stubby_dominance, the_stubby_minority))
        {
        case UPPER: return decide(vis, diag, grVIS_UPPER, grDIAG_STUBBY_UPPER);
        case LOWER: return decide(vis, diag, grVIS_LOWER, grDIAG_STUBBY_LOWER);
        case NEITHER: break;
        }
        return decide(vis, diag, grVIS_BOTH, grDIAG_STUBBY_NEITHER);
    }
    if (total == 0)
        return 0;
    switch (dominant(upper, lower, total, thin_dominance, thin_minority))
    {
    case UPPER: return decide(vis, diag, grVIS_UPPER, grDIAG_THIN_UPPER);
    case LOWER: return decide(vis, diag, grVIS_LOWER, grDIAG_THIN_LOWER);
    case NEITHER: break;
    }
    return 0;
}

int grSplitBlock::classified(grBlockVisClass& vis, grBlockDiagClass& diag) const
{
    if (classify_overview(the_upper_count_overview, the_lower_count_overview, the_alone_count_overview, vis, diag) ||
        classify_block_zoom(the_upper_count_block_zoom, the_lower_count_block_zoom, the_alone_count_block_zoom,
                            the_stubbyness, vis, diag))
        return 1;
    // Unmeasured counts of -1 are not 0 either: a block without any measured zoom stays unclassified.
    if (the_alone_count_block_zoom != 0)
        return the_vertical_count != 0 ? 0 : decide(vis, diag, grVIS_UNDECIDED, grDIAG_NOT_VERTICAL);
    return classify_point_zoom(the_upper_count_point_zoom, the_lower_count_point_zoom, the_alone_count_point_zoom, vis,
                               diag);
}

void grSplitBlock::print(std::ostream& os) const
{
    // Deliberate: the last label ends with neither colon nor blank.
    os << "grSplitBlock {\n  BlockSummary:\n  the_zoom_point: " << the_zoom_point
       << "\n  the_upper_count_overview: " << the_upper_count_overview
       << "\n  the_lower_count_overview: " << the_lower_count_overview
       << "\n  the_alone_count_overview: " << the_alone_count_overview
       << "\n  the_upper_count_point_zoom: " << the_upper_count_point_zoom
       << "\n  the_lower_count_point_zoom: " << the_lower_count_point_zoom
       << "\n  the_alone_count_point_zoom: " << the_alone_count_point_zoom
       << "\n  the_upper_count_block_zoom: " << the_upper_count_block_zoom
       << "\n  the_lower_count_block_zoom: " << the_lower_count_block_zoom
       << "\n  the_alone_count_block_zoom: " << the_alone_count_block_zoom << "\n  the_stubbyness: " << the_stubbyness
       << "\n  the_vertical_count" << the_vertical_count << "\n}\n";
}

std::ostream& operator<<(std::ostream& os, const grSplitBlock& block)
{
    block.print(os);
    return os;
}
