#pragma once

#include "dgExport.h"
#include "giBox3.h"

#include <algorithm>
#include <cstddef>
#include <vector>

/// How a box lies to what is looked for.
enum dgBoxTest
{
    dgBOX_OUTSIDE = 0, ///< nothing in it is wanted
    dgBOX_PARTLY = 1,  ///< something in it may be
    dgBOX_INSIDE = 2   ///< all of it is
};

/// Boxes of numbered items in a tree of boxes around neighbours in space, so that those that meet something are found
/// without a look at all others. A box may change; the tree is sorted again when many have.
///
/// Takes about 55 bytes a box and 8 more where there are more than dgBoxTree::fan of them.
class DG_EXPORT dgBoxTree
{
public:
    /// Boxes in a box.
    static constexpr int fan = 8;

    dgBoxTree() = default;

    /// Item i has box i, which may be empty. sorted_already says that items near in number are near in space.
    explicit dgBoxTree(std::vector<giBox3> boxes, bool sorted_already = false);

    int count() const { return static_cast<int>(the_levels.empty() ? 0 : the_levels.front().size()); }

    /// Around all; empty when there is none.
    const giBox3& box() const { return the_levels.empty() ? no_box() : the_levels.back().front(); }
    const giBox3& box(int item) const { return the_levels.front()[place_of(item)]; }

    /// Changes a box, and those around it.
    void set(int item, const giBox3& box);

    /// Calls visit(item, inside) for every item with a box, in any order, unless test(box) answers dgBOX_OUTSIDE for
    /// its box or one around it. inside is true where one of these was dgBOX_INSIDE; what lies in it is not tested.
    template <class Test, class Visit>
    void find(Test&& test, Visit&& visit) const
    {
        if (!the_levels.empty())
            find_in(the_levels.size() - 1, 0, test, visit);
    }

private:
    static const giBox3& no_box();
    std::size_t place_of(int item) const
    {
        const auto number = static_cast<std::size_t>(item);
        return the_places.empty() ? number : the_places[number];
    }
    int item_at(std::size_t place) const
    {
        return the_items.empty() ? static_cast<int>(place) : static_cast<int>(the_items[place]);
    }
    void sort(std::vector<giBox3>& boxes);
    void surround(std::vector<giBox3> boxes);
    giBox3 around(std::size_t level, std::size_t place) const;

    template <class Test, class Visit>
    void find_in(std::size_t level, std::size_t place, Test& test, Visit& visit) const
    {
        const giBox3& box = the_levels[level][place];
        if (box.empty())
            return;
        const dgBoxTest found = test(box);
        if (found == dgBOX_OUTSIDE)
            return;
        if (level == 0)
        {
            visit(item_at(place), found == dgBOX_INSIDE);
            return;
        }
        if (found == dgBOX_INSIDE)
        {
            std::size_t first = place, end = place + 1;
            for (std::size_t i = 0; i < level; ++i)
            {
                first *= fan;
                end *= fan;
            }
            end = std::min(end, the_levels.front().size());
            for (; first < end; ++first)
                if (!the_levels.front()[first].empty())
                    visit(item_at(first), true);
            return;
        }
        const std::size_t end = std::min((place + 1) * fan, the_levels[level - 1].size());
        for (std::size_t i = place * fan; i < end; ++i)
            find_in(level - 1, i, test, visit);
    }

    // Level 0 has the items' boxes, the last one a single box; each box is around fan of the level before.
    std::vector<std::vector<giBox3>> the_levels;
    std::vector<unsigned> the_items;  // by place in level 0; empty when places are numbers
    std::vector<unsigned> the_places; // by item
    int the_changes = 0;              // since the items were sorted
};
