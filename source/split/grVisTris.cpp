#include "grVisTris.h"

#include "grIdImage.h"
#include "grPixels.h"
#include "grViewFrame.h"

#include "giTriBlock.h"
#include "giXform3.h"

#include <cmath>
#include <memory>
#include <numeric>
#include <vector>

namespace
{
constexpr int default_image_size = 1024;

// Blocks made of the triangles of another one, for groups of them.
class Groups
{
public:
    // Triangle i goes to the group that group_of(i) says, 0 to n_groups - 1.
    template <class GroupOf>
    Groups(const giBoxArrPoint3& nodes, const std::vector<giTriangle>& triangles, int n_groups, GroupOf group_of)
    {
        std::vector<std::vector<int>> members(static_cast<std::size_t>(n_groups));
        for (std::size_t i = 0; i < triangles.size(); ++i)
            members[static_cast<std::size_t>(group_of(static_cast<int>(i)))].push_back(static_cast<int>(i));
        std::vector<int> numbers(static_cast<std::size_t>(nodes.count()), -1);
        for (const std::vector<int>& group : members)
        {
            auto block = std::make_unique<giTriBlock>();
            for (const int i : group)
            {
                giTriangle t = triangles[static_cast<std::size_t>(i)];
                for (int k = 0; k < 3; ++k)
                {
                    int& number = numbers[static_cast<std::size_t>(t[k])];
                    if (number < 0)
                    {
                        number = block->node_count();
                        block->nodes().append(nodes[t[k]]);
                    }
                    t[k] = number;
                }
                block->triangles().push_back(t);
            }
            for (const int i : group)
                for (int k = 0; k < 3; ++k)
                    numbers[static_cast<std::size_t>(triangles[static_cast<std::size_t>(i)][k])] = -1;
            the_list.add_last(block.get());
            the_blocks.push_back(std::move(block));
        }
    }

    const giTriBlockcoDList& list() const { return the_list; }

private:
    std::vector<std::unique_ptr<giTriBlock>> the_blocks;
    giTriBlockcoDList the_list;
};

template <class Visit>
void for_each_pixel(const dgImage& quotients, const dgImage& remainders, int group_size, Visit visit)
{
    for (int y = 0; y < quotients.height; ++y)
        for (int x = 0; x < quotients.width; ++x)
        {
            const int quotient = grSplit::get_pixel(quotients, x, y), remainder = grSplit::get_pixel(remainders, x, y);
            if (quotient != grSplit::max_index() && remainder != grSplit::max_index())
                visit(x, y, quotient * group_size + remainder);
        }
}
}

void grVisTris::find_in_image(const dgImage& quotients, const dgImage& remainders, int group_size,
                              grBlockIdx& triangles)
{
    for_each_pixel(quotients, remainders, group_size, [&](int, int, int triangle) { triangles.add(triangle); });
}

int grVisTris::find_vis_tris(dgWidgetWindow* window, const giTriBlock& block, const giVector3& direction,
                             int image_size, grBlockIdx& upper, grBlockIdx& lower)
{
    giXform3 to_frame;
    if (!window || !gr_is_finite(block.box()) || !gr_view_frame(direction, block.box().middle(), to_frame))
        return 0;
    giBoxArrPoint3 nodes = block.nodes();
    nodes.transform(to_frame);
    const giBox3 box = nodes.box();
    const int n_triangles = block.triangle_count();
    const int group_size = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(n_triangles))));
    const int size = image_size > 0 ? image_size : default_image_size;
    std::vector<int> all(static_cast<std::size_t>(group_size));
    std::iota(all.begin(), all.end(), 0);

    // Where triangles lie in each other, the two images may show different ones, which together name a third: it is
    // told by lying elsewhere. Pixels are those of the upper side; the lower image has them turned over.
    const double pixel = std::max(box.width(), box.height()) / size;
    const auto covers = [&](int triangle, double x, double y)
    {
        giBox3 around;
        for (int k = 0; k < 3; ++k)
            around.merge(nodes[block.triangles()[static_cast<std::size_t>(triangle)][k]]);
        return x >= around.low().x() - 2 * pixel && x <= around.high().x() + 2 * pixel &&
               y >= around.low().y() - 2 * pixel && y <= around.high().y() + 2 * pixel;
    };

    dgImage quotients[2];
    grIdImage image;
    const grIdImageSense senses[] = {grID_IMAGE_UPPER, grID_IMAGE_LOWER};
    {
        const Groups groups(nodes, block.triangles(), group_size, [=](int i) { return i / group_size; });
        if (!image.initialize(window, size, size, groups.list(), box))
            return 0;
        for (const grIdImageSense sense : senses)
            quotients[sense] = image.make_image(box, all, sense);
    }
    const Groups groups(nodes, block.triangles(), group_size, [=](int i) { return i % group_size; });
    if (!image.initialize(window, size, size, groups.list(), box))
        return 0;
    for (const grIdImageSense sense : senses)
    {
        grBlockIdx& seen = sense == grID_IMAGE_UPPER ? upper : lower;
        const dgImage& remainders = image.make_image(box, all, sense);
        for_each_pixel(quotients[sense], remainders, group_size,
                       [&](int column, int row, int triangle)
                       {
                           const double offset = (column + 0.5) * pixel;
                           const double x =
                               sense == grID_IMAGE_UPPER ? box.low().x() + offset : box.high().x() - offset;
                           if (triangle < n_triangles && covers(triangle, x, box.low().y() + (row + 0.5) * pixel))
                               seen.add(triangle);
                       });
    }
    return 1;
}
