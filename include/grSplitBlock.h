#pragma once

#include "coSet.h"
#include "giBox3.h"
#include "grBlockDiagClass.h"
#include "grBlockVisClass.h"
#include "grExport.h"

#include <iosfwd>

/// The pixel counts of one block in a split, and what follows from them.
///
/// Upper and lower are the pixels that show the block when the model is seen from either side, alone those of the block
/// drawn alone. Side and total below stand for one count of these and the alone count.
class GR_EXPORT grSplitBlock
{
public:
    explicit grSplitBlock(int block_index = -1) : the_block_index(block_index) {}

    int state() const { return the_state; }
    int block_index() const { return the_block_index; }
    const giBox3& box() const { return the_box; }
    void box(const giBox3& box) { the_box = box; }
    /// The point that the point zoom centres on, in the frame of the split.
    const giPoint3& zoom_point() const { return the_zoom_point; }
    void zoom_point(const giPoint3& p) { the_zoom_point = p; }

    /// Enters a zone whose counts are still to come.
    void add_pending_zone(int zone) { the_pending_zones.add(zone); }
    const coSet<int>& pending_zones() const { return the_pending_zones; }
    /// Adds the counts of a zone. With the last zone that was pending the state becomes 2.
    void add_overview_counts(int upper, int lower, int alone, int zone);
    void set_point_zoom_counts(int upper, int lower, int alone);
    /// width and height are those of the zoom in pixels. The stubbyness follows from them: the alone count over 8 pi
    /// times the root of the mean of their squares.
    void set_block_zoom_counts(int upper, int lower, int alone, int width, int height);
    /// How many triangles of the block are parallel to the direction.
    void set_vertical_count(int count) { the_vertical_count = count; }
    /// 1 when the overview leaves the block open and its point zoom is still to come.
    int point_zoom_test_pending() const;

    int upper_count_overview() const { return the_upper_count_overview; }
    int lower_count_overview() const { return the_lower_count_overview; }
    int alone_count_overview() const { return the_alone_count_overview; }
    int upper_count_point_zoom() const { return the_upper_count_point_zoom; }
    int lower_count_point_zoom() const { return the_lower_count_point_zoom; }
    int alone_count_point_zoom() const { return the_alone_count_point_zoom; }
    int upper_count_block_zoom() const { return the_upper_count_block_zoom; }
    int lower_count_block_zoom() const { return the_lower_count_block_zoom; }
    int alone_count_block_zoom() const { return the_alone_count_block_zoom; }
    double stubbyness() const { return the_stubbyness; }
    int vertical_count() const { return the_vertical_count; }

    /// Each sets the classes and returns 1 when its counts decide; else it returns 0 and leaves them alone. Counts
    /// below a share are cut off to whole pixels and the comparisons are strict: with few pixels no side dominates.
    static int classify_overview(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag);
    /// Always decides.
    static int classify_point_zoom(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag);
    static int classify_block_zoom(int upper, int lower, int total, double stubbyness, grBlockVisClass& vis,
                                   grBlockDiagClass& diag);
    /// Classifies from all counts that are there.
    int classified(grBlockVisClass& vis, grBlockDiagClass& diag) const;

    void print(std::ostream& os) const;

    // Thresholds, for the whole process. A side dominates with more than the dominance share of the total when the
    // other has less than the minority share.
    static int the_minimum_overview_total;
    static double the_overview_dominance, the_overview_minority;
    static double the_point_zoom_dominance, the_point_zoom_minority;
    static double the_stubby_dominance, the_stubby_minority;
    static double the_stubbyness_limit; ///< blocks above are stubby, others thin

private:
    int the_state = 0;
    int the_reserved = 0;
    int the_block_index = -1;
    giBox3 the_box;
    coSet<int> the_pending_zones{4, 50};
    giPoint3 the_zoom_point;
    int the_upper_count_overview = 0;
    int the_lower_count_overview = 0;
    int the_alone_count_overview = 0;
    int the_upper_count_point_zoom = 0;
    int the_lower_count_point_zoom = 0;
    int the_alone_count_point_zoom = -1;
    int the_upper_count_block_zoom = 0;
    int the_lower_count_block_zoom = 0;
    int the_alone_count_block_zoom = -1;
    double the_stubbyness = -1;
    int the_vertical_count = -1;
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, const grSplitBlock& block);
