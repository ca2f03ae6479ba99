#include "dgNetworkBox.h"

#include "dgCompiledStructure.h"
#include "dgGraphicalPrimitive.h"
#include "dgRunBounds.h"
#include "dgStepTree.h"
#include "dgStructure.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <queue>
#include <vector>

namespace
{
// A part of the network that is still to be looked into, with its box in the coordinates of the root: a called
// structure, a run, or a group of primitives in it.
struct Part
{
    double excess = 0; // by how much the box reached beyond what was found before it
    giBox3 box = {};
    const dgStructure* structure = nullptr;
    const dgPrimitiveRun* run = nullptr;
    int group = -1;
    const giXform3* transform = nullptr;

    bool operator<(const Part& other) const { return excess < other.excess; }
};

class Search
{
public:
    giBox3 find(const dgStructure& root)
    {
        dgBounds bounds;
        root.known_bounds(bounds);
        add(bounds.box, {.structure = &root, .transform = keep(giXform3())});
        while (!the_parts.empty())
        {
            // What reaches farthest is looked into first: it makes most of the others superfluous.
            Part part = the_parts.top();
            the_parts.pop();
            const double excess = excess_of(part.box);
            if (excess <= 0)
                continue;
            if (!the_parts.empty() && excess < the_parts.top().excess)
            {
                part.excess = excess;
                the_parts.push(part);
            }
            else if (part.group >= 0)
                merge(part);
            else if (part.run)
                look_into_run(part);
            else
                look_into_structure(part);
        }
        return the_box;
    }

private:
    double excess_of(const giBox3& box) const
    {
        if (the_box.empty())
            return std::numeric_limits<double>::infinity();
        return std::max({the_box.low().x() - box.low().x(), the_box.low().y() - box.low().y(),
                         the_box.low().z() - box.low().z(), box.high().x() - the_box.high().x(),
                         box.high().y() - the_box.high().y(), box.high().z() - the_box.high().z()});
    }
    const giXform3* keep(const giXform3& transform) { return &the_transforms.emplace_back(transform); }

    void add(const giBox3& box, Part part)
    {
        if (box.empty())
            return;
        part.box = box;
        part.excess = excess_of(box);
        if (part.excess > 0)
            the_parts.push(part);
    }

    // Finds what of a tree reaches beyond what was found.
    template <class Visit>
    void look_into(const dgBoxTree& tree, const giXform3& transform, Visit visit)
    {
        tree.find([&](const giBox3& box)
                  { return excess_of(box.transform(transform)) > 0 ? dgBOX_PARTLY : dgBOX_OUTSIDE; },
                  [&](int item, bool) { visit(item, tree.box(item).transform(transform)); });
    }

    void merge(const Part& part)
    {
        const dgRunBounds& bounds = part.run->bounds();
        for (int i = bounds.first_primitive(part.group); i < bounds.end_primitive(part.group); ++i)
            the_box.merge(part.run->primitives[static_cast<std::size_t>(i)]->bounding_box().transform(*part.transform));
    }

    void look_into_run(const Part& part)
    {
        look_into(part.run->bounds().tree(), *part.transform,
                  [&](int group, const giBox3& box)
                  { add(box, {.structure = nullptr, .run = part.run, .group = group, .transform = part.transform}); });
    }

    void look_into_structure(const Part& part)
    {
        const dgCompiledStructure& form = part.structure->compiled();
        const auto held = form.tree();
        const dgStepTree& tree = *held;
        int transforms = -1;
        const giXform3* placed = nullptr;
        look_into(tree.tree(), *part.transform,
                  [&](int leaf, const giBox3& box)
                  {
                      const dgCompiledStructure::Step& step = form.steps()[static_cast<std::size_t>(tree.step(leaf))];
                      const dgStructure* called = step.run ? nullptr : step.element->called_structure();
                      if (!step.run && !called)
                      {
                          bool world = false;
                          const giXform3 placement = tree.placement(leaf, world);
                          the_box.merge(
                              step.element->bounding_box().transform(world ? placement : placement * *part.transform));
                          return;
                      }
                      if (!placed || tree.transforms_before(leaf) != transforms)
                      {
                          transforms = tree.transforms_before(leaf);
                          bool world = false;
                          const giXform3 placement = tree.placement(leaf, world);
                          placed = keep(world ? placement : placement * *part.transform);
                      }
                      add(box, {.structure = called, .run = step.run, .transform = placed});
                  });
    }

    giBox3 the_box;
    std::priority_queue<Part> the_parts;
    std::deque<giXform3> the_transforms;
};
}

giBox3 dg_network_box(const dgStructure& root)
{
    return Search().find(root);
}
