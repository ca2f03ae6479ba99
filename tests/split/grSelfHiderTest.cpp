#include "grSplitter.h"
#include "gr_make_tblock.h"

#include "giTriBlock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace
{
struct Splitter : grSplitter
{
    using grSplitter::is_self_hider;
};

int hides_itself(const std::vector<giPoint3>& nodes, const std::vector<giTriangle>& triangles)
{
    return Splitter().is_self_hider(*std::unique_ptr<giTriBlock>(gr_make_tblock(nodes, triangles)));
}

// A sheet of 40 x 1 squares whose profile over x is a curve.
int sheet_hides_itself(giPoint2 (*profile)(double))
{
    std::vector<giPoint3> nodes;
    std::vector<giTriangle> triangles;
    for (int i = 0; i <= 40; ++i)
        for (int y = 0; y < 2; ++y)
            nodes.emplace_back(profile(i / 40.).x(), y, profile(i / 40.).y());
    for (int i = 0; i < 80; i += 2)
    {
        triangles.emplace_back(i, i + 2, i + 3);
        triangles.emplace_back(i, i + 3, i + 1);
    }
    return hides_itself(nodes, triangles);
}
}

TEST(grSelfHider, hides_itself_when_triangles_facing_both_ways_overlap)
{
    const struct
    {
        const char* name;
        giPoint2 (*profile)(double);
        int hides;
    } cases[] = {
        {"wave", [](double s) { return giPoint2(s, 0.1 * std::sin(20 * s)); }, 0},
        {"arch", [](double s) { return giPoint2(std::cos(3 * s), std::sin(3 * s)); }, 0},
        {"arch with an undercut", [](double s) { return giPoint2(std::cos(4 * s - 0.5), std::sin(4 * s - 0.5)); }, 1},
        {"wall", [](double s) { return giPoint2(0, s); }, 0},
        {"hairpin as upright as a wall", [](double s) { return giPoint2(5e-4 * (s < 0.5 ? s : 1 - s), s); }, 0},
        {"hairpin", [](double s) { return giPoint2(s < 0.5 ? s : 1 - s, s); }, 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(sheet_hides_itself(c.profile), c.hides) << c.name;
}

TEST(grSelfHider, finds_the_one_triangle_that_is_hidden_wherever_it_lies)
{
    // A row of triangles that face up, and one that faces down under or beside each of them.
    constexpr int n = 37;
    for (int hidden = 0; hidden < n; ++hidden)
        for (const double offset : {0.0, 0.2, 0.5})
        {
            std::vector<giPoint3> nodes;
            std::vector<giTriangle> triangles;
            const auto add = [&](double x, double y, double z, bool up)
            {
                const int first = static_cast<int>(nodes.size());
                for (const auto& [dx, dy] : {std::pair(0.0, 0.0), {0.4, 0.0}, {0.0, 0.4}})
                    nodes.emplace_back(x + dx, y + dy, z);
                triangles.emplace_back(first, first + (up ? 1 : 2), first + (up ? 2 : 1));
            };
            for (int i = 0; i < n; ++i)
                add(i * 17 % n, i % 5, 0, true);
            // At 0.2 a corner touches the long side, and the boxes overlap.
            add(hidden * 17 % n + offset, hidden % 5 + offset, -1, false);
            EXPECT_EQ(hides_itself(nodes, triangles), offset == 0) << hidden << " at " << offset;
        }
}

TEST(grSelfHider, faces_both_ways_side_by_side_hide_nothing)
{
    // Two squares with an edge in common, the second one turned over.
    const std::vector<giPoint3> nodes{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 1, 0}};
    EXPECT_FALSE(hides_itself(nodes, {{0, 1, 4}, {0, 4, 3}, {1, 5, 2}, {1, 4, 5}}));
    EXPECT_FALSE(hides_itself(nodes, {{0, 1, 4}, {0, 3, 4}})); // along a diagonal
}
