#include "grSplitter.h"
#include "gr_make_tblock.h"

#include "giAngle.h"
#include "giTriBlock.h"
#include "giXform3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace
{
struct Splitter : grSplitter
{
    using grSplitter::is_self_hider;
};

/// A sheet of columns x 1 squares whose profile over x is a height function.
template <class Profile>
std::unique_ptr<giTriBlock> sheet(int columns, Profile profile)
{
    std::vector<giPoint3> nodes;
    std::vector<giTriangle> triangles;
    for (int i = 0; i <= columns; ++i)
        for (int y = 0; y < 2; ++y)
        {
            const giPoint2 p = profile(static_cast<double>(i) / columns);
            nodes.emplace_back(p.x(), y, p.y());
        }
    for (int i = 0; i < columns; ++i)
    {
        triangles.emplace_back(2 * i, 2 * i + 2, 2 * i + 3);
        triangles.emplace_back(2 * i, 2 * i + 3, 2 * i + 1);
    }
    return std::unique_ptr<giTriBlock>(gr_make_tblock(nodes, triangles));
}
}

TEST(grSelfHider, hides_itself_when_triangles_facing_both_ways_overlap)
{
    const double pi = 3.14159265358979;
    const auto arc = [](double from, double to)
    { return [=](double s) { return giPoint2(std::cos(from + s * (to - from)), std::sin(from + s * (to - from))); }; };
    const struct
    {
        const char* name;
        std::unique_ptr<giTriBlock> block;
        int hides;
    } cases[] = {
        {"closed box", std::unique_ptr<giTriBlock>(gr_make_cube(giPoint3(), 1)), 1},
        {"wave", sheet(40, [](double s) { return giPoint2(s, 0.1 * std::sin(20 * s)); }), 0},
        {"arch", sheet(40, arc(0, pi)), 0},
        {"arch with an undercut", sheet(40, arc(-0.5, pi)), 1},
        {"wall", sheet(8, [](double s) { return giPoint2(0, s); }), 0},
        {"hairpin", sheet(2, [](double s) { return giPoint2(s < 0.4   ? 0
                                                            : s < 0.6 ? 1
                                                                      : 0,
                                                            s); }), 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Splitter().is_self_hider(*c.block), c.hides) << c.name;
}

TEST(grSelfHider, faces_both_ways_side_by_side_hide_nothing)
{
    // Two squares with an edge in common, the second one turned over.
    const std::vector<giPoint3> nodes{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 1, 0}};
    const std::unique_ptr<giTriBlock> block(gr_make_tblock(nodes, {{0, 1, 4}, {0, 4, 3}, {1, 5, 2}, {1, 4, 5}}));
    EXPECT_EQ(Splitter().is_self_hider(*block), 0);
    const std::unique_ptr<giTriBlock> across(gr_make_tblock(nodes, {{0, 1, 4}, {0, 3, 4}})); // along a diagonal
    EXPECT_EQ(Splitter().is_self_hider(*across), 0);
    block->nodes().set(2, giPoint3(0.5, 0, 1)); // folded over the first
    block->nodes().set(5, giPoint3(0.5, 1, 1));
    EXPECT_EQ(Splitter().is_self_hider(*block), 0); // and so facing the same way
    block->triangles()[2] = giTriangle(1, 2, 5);
    EXPECT_EQ(Splitter().is_self_hider(*block), 1);
}
