#include "dgBoxTree.h"

#include "dgMortonCode.h"

#include <numeric>
#include <utility>

dgBoxTree::dgBoxTree(std::vector<giBox3> boxes, bool sorted_already)
{
    if (boxes.empty())
        return;
    if (!sorted_already && boxes.size() > fan)
        sort(boxes);
    surround(std::move(boxes));
}

const giBox3& dgBoxTree::no_box()
{
    static const giBox3 box;
    return box;
}

void dgBoxTree::sort(std::vector<giBox3>& boxes)
{
    giBox3 all;
    for (const giBox3& box : boxes)
        all.merge(box);
    const dgMortonCode code(all);
    std::vector<std::pair<unsigned long long, unsigned>> order(boxes.size());
    for (unsigned i = 0; i < order.size(); ++i)
        order[i] = {boxes[i].empty() ? ~0ull : code(boxes[i].middle()), i};
    std::sort(order.begin(), order.end());
    the_items.resize(boxes.size());
    the_places.resize(boxes.size());
    std::vector<giBox3> sorted(boxes.size());
    for (unsigned place = 0; place < order.size(); ++place)
    {
        const unsigned item = order[place].second;
        the_items[place] = item;
        the_places[item] = place;
        sorted[place] = boxes[item];
    }
    boxes = std::move(sorted);
}

void dgBoxTree::surround(std::vector<giBox3> boxes)
{
    the_changes = 0;
    the_levels.clear();
    the_levels.push_back(std::move(boxes));
    while (the_levels.back().size() > 1)
    {
        const std::size_t below = the_levels.size() - 1, count = (the_levels.back().size() + fan - 1) / fan;
        std::vector<giBox3> level(count);
        for (std::size_t i = 0; i < count; ++i)
            level[i] = around(below, i);
        the_levels.push_back(std::move(level));
    }
}

giBox3 dgBoxTree::around(std::size_t level, std::size_t place) const
{
    giBox3 box;
    const std::size_t end = std::min((place + 1) * fan, the_levels[level].size());
    for (std::size_t i = place * fan; i < end; ++i)
        box.merge(the_levels[level][i]);
    return box;
}

void dgBoxTree::set(int item, const giBox3& box)
{
    std::size_t place = place_of(item);
    if (the_levels.front()[place] == box)
        return;
    the_levels.front()[place] = box;
    if (!the_items.empty() && ++the_changes > count())
    {
        std::vector<giBox3> boxes(the_items.size());
        for (std::size_t i = 0; i < boxes.size(); ++i)
            boxes[the_items[i]] = the_levels.front()[i];
        sort(boxes);
        surround(std::move(boxes));
        return;
    }
    for (std::size_t level = 1; level < the_levels.size(); ++level)
    {
        place /= fan;
        the_levels[level][place] = around(level - 1, place);
    }
}
