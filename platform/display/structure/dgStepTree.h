#pragma once

#include "dgBounds.h"
#include "dgBoxTree.h"
#include "dgCompiledStructure.h"
#include "dgExport.h"
#include "dgStepTrail.h"
#include "giXform3.h"

#include <algorithm>
#include <vector>

class dgGraphicalElement;
class dgStructure;

/// What the steps of a compiled structure draw and where, and which attributes hold before each of them, so that steps
/// can be left out.
class DG_EXPORT dgStepTree
{
public:
    /// The structures that are called must know their bounds, but for those that are looking for them now.
    explicit dgStepTree(const dgCompiledStructure& form);

    /// Of all steps together, in the structure's own coordinates.
    dgBounds bounds() const;

    /// The steps that draw, in order: runs, calls and elements that draw by themselves.
    int drawing_steps() const { return static_cast<int>(the_leaves.size()); }
    int step(int leaf) const { return the_leaves[static_cast<std::size_t>(leaf)].step; }

    /// The first drawing step that is not before a step.
    int leaf_from(int step) const;

    /// Their boxes, for those that are not open or vague.
    const dgBoxTree& tree() const { return the_tree; }
    bool open(int leaf) const { return the_leaves[static_cast<std::size_t>(leaf)].open; }

    /// The leaves that must be met wherever their boxes lie: to draw all, and to find all primitives.
    const std::vector<int>& open_leaves() const { return the_open; }
    const std::vector<int>& vague_leaves() const { return the_vague; }

    /// Whether a drawing step calls a structure in which there is nothing.
    bool empty(int leaf) const { return the_leaves[static_cast<std::size_t>(leaf)].empty; }

    /// What a drawing step that is not empty is, if that is one small run; and how many of those from it on are known
    /// to be alike without a look at each of them, 1 or more.
    dgSoleRun sole(int leaf, int& alike) const;

    /// The step itself.
    const dgCompiledStructure::Step& item(int leaf) const;

    /// What walks that leave some of the steps out have met last.
    dgStepTrail& trail() const { return the_trail; }

    int transforms_before(int leaf) const { return the_leaves[static_cast<std::size_t>(leaf)].transforms; }

    /// From the coordinates of a drawing step to the structure's, and whether these are taken for the world's.
    giXform3 placement(int leaf, bool& world) const;

    /// Calls execute(element) for the attributes among the steps first to end - 1 that hold behind them.
    template <class Execute>
    void attributes_between(int first, int end, Execute execute) const
    {
        // Transforms follow on each other, and always in the same order: another one would round in another way.
        const auto from = std::lower_bound(the_transforms.begin(), the_transforms.end(), first);
        execute_between(first, end, from, std::lower_bound(from, the_transforms.end(), end), execute);
    }

    /// The same for those behind one drawing step that are before another one.
    template <class Execute>
    void attributes_from_to(int leaf, int next, Execute execute) const
    {
        const auto at = [this](int number) { return the_transforms.begin() + transforms_before(number); };
        execute_between(step(leaf) + 1, step(next), at(leaf), at(next), execute);
    }

    // What has changed in place, before update finds it again. A step is one of an attribute or of an element that
    // draws by itself.
    void run_changed(int step) { leaf_changed(leaf_from(step)); }
    void calls_changed(const std::vector<const dgStructure*>& called);
    void element_changed(int step);
    void update();

private:
    struct Leaf
    {
        int step;
        int transforms; // how many of the structure's lie before it
        bool exact = true, open = false, vague = false;
        bool unplaced = false; // an element before it may have changed what is in force
        bool empty = false;
        dgSoleRun sole = {};
    };
    struct Attributes
    {
        int type;
        std::vector<int> steps; // one or more
    };
    struct Range
    {
        int first, end; // leaves
    };
    using Steps = std::vector<int>::const_iterator;

    template <class Execute>
    void execute_between(int first, int end, Steps from, Steps behind, Execute& execute) const
    {
        for (const Attributes& of_type : the_attributes)
        {
            if (of_type.steps.front() >= end || of_type.steps.back() < first)
                continue;
            const auto next = std::lower_bound(of_type.steps.begin(), of_type.steps.end(), end);
            if (next[-1] >= first)
                execute(element(next[-1]));
        }
        for (auto i = last_world(from, behind); i != behind; ++i)
            execute(element(*i));
    }

    const dgGraphicalElement& element(int step) const;
    Steps last_world(Steps from, Steps behind) const;
    giXform3 product(int transforms, bool& world) const;
    void note_attribute(int step, const dgGraphicalElement& attribute);
    dgBounds find(Leaf& leaf, const giXform3& placement, bool world);
    void leaf_changed(int leaf) { the_changed.push_back({leaf, leaf + 1}); }
    void compare(int group);

    static constexpr int leaves_in_group = 64;

    const dgCompiledStructure& the_form;
    std::vector<Leaf> the_leaves;
    dgBoxTree the_tree;
    std::vector<dgSoleRun> the_groups; // what all leaves of a group are, if they are alike
    std::vector<Range> the_changed;
    Range the_moved{0, 0};                // by the transform that has changed last
    std::vector<int> the_open, the_vague; // leaves
    std::vector<int> the_transforms;      // steps
    std::vector<Attributes> the_attributes;
    int the_inexact = 0; // leaves
    double the_reach = 0;
    bool the_world = false;
    mutable dgStepTrail the_trail;
};
