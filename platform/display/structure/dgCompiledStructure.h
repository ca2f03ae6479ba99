#pragma once

#include "dgExport.h"
#include "dgPrimitiveRun.h"

#include <deque>
#include <vector>

class dgGraphicalElement;
class dgStructure;

/// A structure's elements as the renderer executes them: runs of primitives between the elements that change state.
///
/// Geometry itself is kept per primitive by the drivers, so that making this again after an insertion costs one walk
/// over the elements and copies no coordinates.
class DG_EXPORT dgCompiledStructure
{
public:
    explicit dgCompiledStructure(const dgStructure& structure);
    ~dgCompiledStructure();

    /// Either an element that is executed by itself, or a run.
    struct Step
    {
        const dgGraphicalElement* element; ///< null for a run
        const dgPrimitiveRun* run;
    };

    const std::vector<Step>& steps() const { return the_steps; }

    /// Content stamp of the structure that this was made from.
    unsigned long long content_stamp() const { return the_content_stamp; }

    /// A primitive of the structure was changed in place.
    void primitive_changed(unsigned long long stamp) { the_changed_stamp = stamp; }

    /// Tells the runs of changes since the last call; to be called before they are drawn. False when a primitive has
    /// changed so that it belongs in another run: then this must be made again.
    bool apply_changes();

private:
    std::vector<Step> the_steps;
    std::deque<dgPrimitiveRun> the_runs;
    unsigned long long the_content_stamp;
    unsigned long long the_changed_stamp = 0; // 0 when the runs know
};
