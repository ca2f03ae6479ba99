#pragma once

#include "dgBounds.h"
#include "dgExport.h"
#include "dgPrimitiveRun.h"

#include <deque>
#include <memory>
#include <vector>

class dgGraphicalElement;
class dgGraphicalPrimitive;
class dgStepTree;
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

    const dgStructure& structure() const { return the_structure; }

    /// An element of the structure was changed in place.
    void element_changed(const dgGraphicalElement& element);

    /// Tells the runs of changes since the last call; to be called before they are drawn. False when a primitive has
    /// changed so that it belongs in another run: then this must be made again.
    bool apply_changes();

    /// Where the steps draw, as of the last update_tree; null before the first.
    std::shared_ptr<const dgStepTree> tree() const { return the_tree; }

    /// Brings the tree up to date after changes of elements and of some of the structures that are called. Changes must
    /// have been applied.
    const dgStepTree& update_tree(const std::vector<const dgStructure*>& changed_calls);

    /// Lets the tree be made again.
    void forget_tree();

private:
    struct RunPlace
    {
        int step;
        int first_primitive; // counted through all runs
    };
    bool apply_change(int primitive, const dgGraphicalPrimitive& changed);
    int place_of(const dgGraphicalElement& primitive) const;
    int step_of(const dgGraphicalElement& element) const;

    const dgStructure& the_structure;
    std::vector<Step> the_steps;
    std::deque<dgPrimitiveRun> the_runs;
    std::vector<RunPlace> the_run_places;
    int the_primitives = 0;
    unsigned long long the_content_stamp;
    std::shared_ptr<dgStepTree> the_tree; // those who draw may still use one that was left

    // Changes in place that the runs and the tree do not know yet.
    std::vector<const dgGraphicalElement*> the_changed_primitives;
    std::vector<const dgGraphicalElement*> the_changed_elements;
    std::vector<int> the_changed_runs; // steps
    unsigned long long the_changed_stamp = 0;
    bool the_all_changed = false; // any of the primitives may have changed
};
