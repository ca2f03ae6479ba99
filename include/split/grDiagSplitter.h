#pragma once

#include "coSet.h"
#include "grBlockDiagClass.h"
#include "grBlockVisClass.h"
#include "grExport.h"
#include "grPixelCount.h"
#include "utTypeID.h"

#include <iosfwd>
#include <string>
#include <vector>

class grSplitBlock;
struct dgImage;

/// Observes a split. This one writes what it is told about interesting blocks to a stream; derived ones see all.
///
/// All calls come while the split runs. Images are good during the call.
class GR_EXPORT grDiagSplitter
{
public:
    /// stream null: nothing is written.
    explicit grDiagSplitter(std::ostream* stream = nullptr) : the_stream(stream) {}
    virtual ~grDiagSplitter();

    /// Marks a block as interesting, or all of them with -1: its counts are written, and images of its zooms handed
    /// out.
    void interesting(int block) { the_interesting.add(block); }
    int is_interesting(int block) const { return the_interesting.contains(block) || the_interesting.contains(-1); }

    /// The zones that a block lies in, as corners of a range.
    virtual void block_zones(int block, int lower_zone, int upper_zone);
    /// The counts of one zone, under the numbers of all blocks; those listed lie in it.
    virtual void zone_counts(int zone, const std::vector<int>& blocks, const grPixelCountcoDynArr& upper,
                             const grPixelCountcoDynArr& lower, const grPixelCountcoDynArr& alone);
    virtual void point_zoom_counts(int block, int upper, int lower, int alone);
    virtual void block_zoom_counts(int block, int upper, int lower, int alone, int width, int height);
    /// An identifier image. Names are overview_upper and overview_lower, followed by _ and the number of the zone where
    /// there are several, and point_zoom_ or block_zoom_, upper_, lower_ or alone_, and the number of an interesting
    /// block.
    virtual void image(const std::string& name, const dgImage& image);
    /// The outcome for a block.
    virtual void classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag);

    UT_DECLARE_ROOT_TYPE(grDiagSplitter);

private:
    std::ostream* the_stream;
    coSet<int> the_interesting{4, 50};
};
