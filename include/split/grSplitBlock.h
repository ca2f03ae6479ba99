#pragma once

#include "coSet.h"
#include "giBox3.h"
#include "grBlockDiagClass.h"
#include "grBlockVisClass.h"
#include "grExport.h"

#include <iosfwd>

/// The pixel counts of one block in a split (see grSplitter), and the class that follows from them.
///
/// Counts come in threes. The upper count is the number of pixels that show the block in an image of the whole model
/// seen from the upper side, the lower count the same from the lower side, and the alone count the number of pixels of
/// the block when nothing else is drawn, so nothing hides it. There are three such threes: of the overview, which shows
/// the whole model; of the point zoom, an image enlarged about a point of the block; and of the block zoom, an image of
/// the block's box. The alone count of a zoom is -1 until it has been made.
///
/// A side dominates in a three when its count exceeds a share of the alone count (the dominance) while the other side's
/// stays below a smaller share (the minority): nearly all of the block is then seen from that side, and it is given to
/// it.
class GR_EXPORT grSplitBlock
{
public:
    explicit grSplitBlock(int block_index = -1) : the_block_index(block_index) {}

    /// 2 when every zone of the block has been counted in the overview, else 0.
    int state() const { return the_state; }
    /// Its place in the list of blocks that are split; -1 when it was not given one.
    int block_index() const { return the_block_index; }
    /// The block's box in the frame of the split, where the direction is the z axis.
    const giBox3& box() const { return the_box; }
    void box(const giBox3& box) { the_box = box; }
    /// The point that the point zoom centres on, in the frame of the split.
    const giPoint3& zoom_point() const { return the_zoom_point; }
    void zoom_point(const giPoint3& p) { the_zoom_point = p; }

    /// Notes that a zone of the overview (by its number in a grSplitZones) shows the block and is still to be counted.
    void add_pending_zone(int zone) { the_pending_zones.add(zone); }
    const coSet<int>& pending_zones() const { return the_pending_zones; }
    /// Adds the counts of one zone to those of the overview. With the last zone that was pending the state becomes 2.
    void add_overview_counts(int upper, int lower, int alone, int zone);
    void set_point_zoom_counts(int upper, int lower, int alone);
    /// width and height are the size of the zoom in pixels. The stubbyness, which is low for thin blocks, follows from
    /// them and the alone count A: A / (8 pi sqrt((width^2 + height^2) / 2)).
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

    /// The rule of each three of counts: sets the visibility class and the rule that gave it, and returns 1, when the
    /// counts decide; else returns 0 and leaves them alone. total is the alone count. Its shares are cut off to whole
    /// pixels, and the counts have to differ from them, so that with few pixels no side dominates.
    static int classify_overview(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag);
    /// Always decides: grVIS_UNDECIDED where no side dominates or there are no pixels.
    static int classify_point_zoom(int upper, int lower, int total, grBlockVisClass& vis, grBlockDiagClass& diag);
    static int classify_block_zoom(int upper, int lower, int total, double stubbyness, grBlockVisClass& vis,
                                   grBlockDiagClass& diag);
    /// Classifies from all counts that there are, the overview first, then the block zoom, then the point zoom. Returns
    /// 0 and leaves the classes alone when none of them decides.
    int classified(grBlockVisClass& vis, grBlockDiagClass& diag) const;

    void print(std::ostream& os) const;

    // Thresholds, for the whole process: shares of the alone count, and the least alone count for which an overview in
    // which no side dominates settles that both are needed.
    static int the_minimum_overview_total;
    static double the_overview_dominance, the_overview_minority;
    static double the_point_zoom_dominance, the_point_zoom_minority;
    static double the_stubby_dominance, the_stubby_minority;
    static double the_stubbyness_limit; ///< blocks above are stubby, others thin

private:
    int the_state = 0;
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
