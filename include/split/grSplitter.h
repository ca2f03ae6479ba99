#pragma once

#include "giTriBlockcoDList.h"
#include "grBlockIdx.h"
#include "grExport.h"
#include "grSplitterProgressSection.h"
#include "utTypeID.h"

#include <functional>
#include <vector>

class dgWidgetWindow;
class giBox3;
class giVector3;
class giXform3;
class grDiagSplitter;

/// Told how much of a section of a split is done; returning 0 stops the split.
using grSplitterCallback = std::function<int(grSplitterProgressSection section, int done, int total)>;

/// Sorts triangle blocks by the side that they are seen from.
///
/// The blocks are drawn into identifier images from both sides and each alone, first as a whole in zones, then those
/// that this leaves open enlarged about a point of theirs and about their box, and their pixels are counted. See
/// grSplitBlock for the rules that classify them.
class GR_EXPORT grSplitter
{
public:
    virtual ~grSplitter();

    /// Splits blocks, of which nothing is changed; their number is their place in the list.
    ///
    /// The direction points to the upper side and has any length but 0. The window is used to draw in and is given
    /// another size. image_size is the longer side of the overview images in pixels, 0 for 1024; block zooms have half
    /// and point zooms a quarter of it. The block numbers of classes grVIS_UPPER, grVIS_LOWER, grVIS_UNDECIDED and
    /// grVIS_BOTH are added to the four sets. progress and diagnostics may be null.
    ///
    /// Returns 1. Returns 0, and the sets are as they were, when the callback stops it, the direction is no direction,
    /// or the window is null or cannot be given the size of the images. Blocks without triangles, or with coordinates
    /// that are no finite numbers, are not drawn and end up as grVIS_BOTH.
    int split(dgWidgetWindow* window, const giTriBlockcoDList& blocks, const giVector3& direction, int image_size,
              grBlockIdx& upper, grBlockIdx& lower, grBlockIdx& undecided, grBlockIdx& both,
              const grSplitterCallback& progress = grSplitterCallback(), grDiagSplitter* diagnostics = nullptr);

    UT_DECLARE_ROOT_TYPE(grSplitter);

protected:
    /// Move the nodes, and turn the normals, of all blocks.
    static void transform_nodes(const giTriBlockcoDList& blocks, const giXform3& xform);
    static void transform_normals(const giTriBlockcoDList& blocks, const giXform3& xform);
    /// The box of each block, in their order; empty for those that cannot be drawn.
    static void find_bounding_boxes(const giTriBlockcoDList& blocks, std::vector<giBox3>& boxes);
    void find_self_hiders(const giTriBlockcoDList& blocks, grBlockIdx& self_hiders) const;
    /// 1 when triangles that face up along z and others that face down overlap, seen along z. Triangles within 0.06
    /// degrees of vertical face neither way.
    virtual int is_self_hider(const giTriBlock& block) const;
};
