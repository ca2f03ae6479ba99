#include "dgStepTree.h"

#include "dgCompiledStructure.h"
#include "dgGraphicalAttribute.h"
#include "dgNetworkWalk.h"
#include "dgPrimitiveRun.h"
#include "dgRunBounds.h"
#include "dgStructure.h"

#include <cmath>
#include <unordered_set>
#include <utility>

namespace
{
bool is_transform(const dgGraphicalElement& element)
{
    return element.type() == dgTYPE_TRANSFORM || element.type() == dgTYPE_WORLD_TRANSFORM;
}

// Whether boxes stay boxes.
bool keeps_axes(const giXform3& xform)
{
    if (xform.kind() == giXFORM_IDENTITY)
        return true;
    for (int row = 0; row < 3; ++row)
    {
        int used = 0;
        for (int column = 0; column < 3; ++column)
            used += xform(row, column) != 0;
        if (used > 1)
            return false;
    }
    return true;
}

void erase_sorted(std::vector<int>& numbers, int number)
{
    const auto place = std::lower_bound(numbers.begin(), numbers.end(), number);
    if (place != numbers.end() && *place == number)
        numbers.erase(place);
}

void mark(std::vector<int>& numbers, int number, bool on)
{
    erase_sorted(numbers, number);
    if (on)
        numbers.insert(std::lower_bound(numbers.begin(), numbers.end(), number), number);
}
}

dgStepTree::dgStepTree(const dgCompiledStructure& form) : the_form(form)
{
    bool unplaced = false;
    const auto& steps = form.steps();
    for (int i = 0; i < static_cast<int>(steps.size()); ++i)
    {
        const dgGraphicalElement* element = steps[static_cast<std::size_t>(i)].element;
        if (element && element->kind() == dgELEMENT_ATTRIBUTE)
        {
            note_attribute(i, *element);
            continue;
        }
        the_leaves.push_back({.step = i, .transforms = static_cast<int>(the_transforms.size()), .unplaced = unplaced});
        if (!element)
            continue;
        if (const dgStructure* called = element->called_structure())
            called->call_hint(i);
        else if (element->type() != dgTYPE_CAMERA_INDEX && !element->draws_in_box())
            unplaced = true;
    }
    the_tree = dgBoxTree(std::vector<giBox3>(the_leaves.size()), true);
    std::vector<giBox3> boxes(the_leaves.size());
    giXform3 placement;
    bool world = false;
    int passed = 0;
    for (std::size_t i = 0; i < the_leaves.size(); ++i)
    {
        Leaf& leaf = the_leaves[i];
        for (; passed < leaf.transforms; ++passed)
        {
            const dgGraphicalElement& transform = element(the_transforms[static_cast<std::size_t>(passed)]);
            world |= transform.type() == dgTYPE_WORLD_TRANSFORM;
            dg_pass_transform(transform, placement);
        }
        const dgBounds bounds = find(leaf, placement, world);
        boxes[i] = bounds.box;
        the_inexact += !leaf.exact;
        if (leaf.open)
            the_open.push_back(static_cast<int>(i));
        if (leaf.vague)
            the_vague.push_back(static_cast<int>(i));
    }
    the_tree = dgBoxTree(std::move(boxes));
    the_groups.resize((the_leaves.size() + leaves_in_group - 1) / leaves_in_group);
    for (int group = 0; group < static_cast<int>(the_groups.size()); ++group)
        compare(group);
}

dgBounds dgStepTree::bounds() const
{
    return {.box = the_tree.box(),
            .reach = the_reach,
            .exact = the_inexact == 0,
            .open = !the_open.empty(),
            .vague = !the_vague.empty(),
            .world = the_world,
            .sole = the_leaves.size() == 1 ? the_leaves.front().sole : dgSoleRun()};
}

int dgStepTree::leaf_from(int step) const
{
    const auto found = std::lower_bound(the_leaves.begin(), the_leaves.end(), step,
                                        [](const Leaf& leaf, int number) { return leaf.step < number; });
    return static_cast<int>(found - the_leaves.begin());
}

dgSoleRun dgStepTree::sole(int leaf, int& alike) const
{
    const int group = leaf / leaves_in_group;
    const dgSoleRun all = the_groups[static_cast<std::size_t>(group)];
    alike = all.features < 0 ? 1 : std::min((group + 1) * leaves_in_group, drawing_steps()) - leaf;
    return all.features < 0 ? the_leaves[static_cast<std::size_t>(leaf)].sole : all;
}

// Finds out whether the leaves of a group are alike.
void dgStepTree::compare(int group)
{
    const auto first = the_leaves.begin() + group * leaves_in_group;
    const auto end = the_leaves.begin() + std::min((group + 1) * leaves_in_group, drawing_steps());
    const bool alike = std::all_of(first, end, [first](const Leaf& leaf) { return leaf.sole == first->sole; });
    the_groups[static_cast<std::size_t>(group)] = alike ? first->sole : dgSoleRun();
}

const dgGraphicalElement& dgStepTree::element(int step) const
{
    return *the_form.steps()[static_cast<std::size_t>(step)].element;
}

const dgCompiledStructure::Step& dgStepTree::item(int leaf) const
{
    return the_form.steps()[static_cast<std::size_t>(step(leaf))];
}

// The last of some transforms that takes the place of those before it, else the first.
dgStepTree::Steps dgStepTree::last_world(Steps from, Steps behind) const
{
    for (Steps i = behind; i != from;)
        if (element(*--i).type() == dgTYPE_WORLD_TRANSFORM)
            return i;
    return from;
}

// Of the first so many transforms.
giXform3 dgStepTree::product(int transforms, bool& world) const
{
    giXform3 placement;
    const Steps behind = the_transforms.begin() + transforms;
    const Steps first = last_world(the_transforms.begin(), behind);
    world = first != behind && element(*first).type() == dgTYPE_WORLD_TRANSFORM;
    for (Steps i = first; i != behind; ++i)
        dg_pass_transform(element(*i), placement);
    return placement;
}

giXform3 dgStepTree::placement(int leaf, bool& world) const
{
    return product(the_leaves[static_cast<std::size_t>(leaf)].transforms, world);
}

void dgStepTree::note_attribute(int step, const dgGraphicalElement& attribute)
{
    attribute.place_hint(step);
    if (is_transform(attribute))
    {
        the_transforms.push_back(step);
        return;
    }
    the_reach = std::max(the_reach, static_cast<const dgGraphicalAttribute&>(attribute).reach());
    for (Attributes& of_type : the_attributes)
        if (of_type.type == attribute.type())
        {
            of_type.steps.push_back(step);
            return;
        }
    the_attributes.push_back({attribute.type(), {step}});
}

dgBounds dgStepTree::find(Leaf& leaf, const giXform3& placement, bool world)
{
    const dgCompiledStructure::Step& step = the_form.steps()[static_cast<std::size_t>(leaf.step)];
    dgBounds found;
    int parts = 1; // how many boxes make the box
    if (step.run)
    {
        found.box = step.run->bounds().box();
        found.open = step.run->topology == dgTOPOLOGY_TEXT; // its extent is the driver's to know
        parts = static_cast<int>(step.run->primitives.size());
        found.sole = {step.run->small_features(), step.run->topology};
    }
    else if (const dgStructure* called = step.element->called_structure())
    {
        if (!called->known_bounds(found))
            found.open = found.vague = true; // a circle of calls
        leaf.empty = found.box.empty() && !found.open;
        if (leaf.empty)
            found.sole = {};
        parts = 2;
    }
    else if (step.element->type() != dgTYPE_STRUCTURE_CALL)
    {
        element(leaf.step).place_hint(leaf.step);
        found.box = step.element->bounding_box();
        found.open = !step.element->draws_in_box();
    }
    const bool moved = !placement.is_identity();
    if (placement.kind() == giXFORM_PROJECTIVE || (found.world && moved))
        found.vague = true;
    else if (moved)
    {
        found.exact &= parts == 1 || keeps_axes(placement);
        found.box = found.box.transform(placement);
    }
    the_world |= world || found.world;
    the_reach = std::max(the_reach, found.reach);
    leaf.sole = found.sole;
    leaf.exact = found.exact;
    leaf.vague = found.vague;
    leaf.open = found.open || found.vague || leaf.unplaced;
    return found;
}

// In one pass, so that any number of changes costs no more than to find all leaves.
void dgStepTree::update()
{
    std::sort(the_changed.begin(), the_changed.end(), [](const Range& a, const Range& b) { return a.first < b.first; });
    giXform3 placement;
    bool world = false;
    int passed = -1, done = 0;
    for (const Range& range : the_changed)
        for (done = std::max(done, range.first); done < range.end; ++done)
        {
            Leaf& leaf = the_leaves[static_cast<std::size_t>(done)];
            if (passed < 0)
                placement = product(passed = leaf.transforms, world);
            for (; passed < leaf.transforms; ++passed)
            {
                const dgGraphicalElement& transform = element(the_transforms[static_cast<std::size_t>(passed)]);
                world |= transform.type() == dgTYPE_WORLD_TRANSFORM;
                dg_pass_transform(transform, placement);
            }
            const Leaf before = leaf;
            the_tree.set(done, find(leaf, placement, world).box);
            the_inexact += before.exact - leaf.exact;
            if (leaf.open != before.open)
                mark(the_open, done, leaf.open);
            if (leaf.vague != before.vague)
                mark(the_vague, done, leaf.vague);
        }
    int group = 0; // those before it have been compared again
    for (const Range& range : the_changed)
        for (group = std::max(group, range.first / leaves_in_group); group * leaves_in_group < range.end; ++group)
            compare(group);
    the_changed.clear();
    the_moved = {0, 0};
}

void dgStepTree::calls_changed(const std::vector<const dgStructure*>& called)
{
    const auto& steps = the_form.steps();
    const auto called_at = [&](int step) -> const dgStructure*
    {
        const dgGraphicalElement* element = steps[static_cast<std::size_t>(step)].element;
        return element ? element->called_structure() : nullptr;
    };
    std::unordered_set<const dgStructure*> sought;
    for (const dgStructure* structure : called)
    {
        const int hint = structure->call_hint();
        if (structure->times_called_by(the_form.structure()) == 1 && hint < static_cast<int>(steps.size()) &&
            called_at(hint) == structure)
            leaf_changed(leaf_from(hint));
        else
            sought.insert(structure);
    }
    for (int leaf = 0; leaf < drawing_steps() && !sought.empty(); ++leaf)
        if (const dgStructure* structure = called_at(step(leaf)); structure && sought.count(structure))
        {
            structure->call_hint(step(leaf));
            leaf_changed(leaf);
        }
}

void dgStepTree::element_changed(int step)
{
    const dgGraphicalElement& changed = element(step);
    if (changed.kind() != dgELEMENT_ATTRIBUTE)
        return leaf_changed(leaf_from(step));
    if (!is_transform(changed))
    {
        the_reach = std::max(the_reach, static_cast<const dgGraphicalAttribute&>(changed).reach());
        return;
    }
    // It holds until another takes its place, as the one before it does.
    const int first = leaf_from(step);
    if (the_moved.first <= first && first < the_moved.end)
        return;
    const auto next =
        std::find_if(std::upper_bound(the_transforms.begin(), the_transforms.end(), step), the_transforms.end(),
                     [this](int i) { return element(i).type() == dgTYPE_WORLD_TRANSFORM; });
    the_moved = {first, next == the_transforms.end() ? drawing_steps() : leaf_from(*next)};
    the_changed.push_back(the_moved);
}
