#include "grSplitBlock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{
// A visibility class and a rule; {-1, -1} where nothing is decided.
using Outcome = std::pair<int, int>;
const Outcome open{-1, -1};

template <class Classify>
Outcome outcome_of(Classify classify)
{
    auto vis = static_cast<grBlockVisClass>(-1);
    auto diag = static_cast<grBlockDiagClass>(-1);
    const bool decided = classify(vis, diag) != 0;
    EXPECT_EQ(decided, vis != -1);
    return {vis, diag};
}

Outcome classified(const grSplitBlock& block)
{
    return outcome_of([&](auto& vis, auto& diag) { return block.classified(vis, diag); });
}

grSplitBlock with_overview(int upper, int lower, int alone)
{
    grSplitBlock block(0);
    block.add_overview_counts(upper, lower, alone, 0);
    return block;
}
}

TEST(grSplitBlock, rules_decide_by_dominance_size_and_stubbyness)
{
    const double overview = -2, point_zoom = -3, nan = std::nan(""); // else the stubbyness of a block zoom
    const struct
    {
        const char* name;
        double rule;
        int upper, lower, total;
        Outcome outcome;
    } cases[] = {
        {"upper dominant", overview, 950, 40, 1000, {0, 0}},
        {"lower dominant", overview, 40, 950, 1000, {1, 1}},
        {"not dominant", overview, 899, 40, 1000, {3, 2}},
        {"not dominant and too few", overview, 899, 40, 999, open},
        {"dominant is strict", overview, 900, 40, 1000, {3, 2}},
        {"minority is strict", overview, 950, 100, 1000, {3, 2}},
        {"dominance comes before size", overview, 95, 4, 100, {0, 0}},
        {"of 9 pixels nobody dominates", overview, 9, 0, 9, open},
        {"of 10 they can", overview, 10, 0, 10, {0, 0}},
        {"limits are whole pixels", overview, 14, 0, 15, {0, 0}}, // 0.9 of 15 is 13.5
        {"none", overview, 0, 0, 0, open},
        {"upper dominant", point_zoom, 61, 9, 100, {0, 3}},
        {"dominance is strict", point_zoom, 60, 9, 100, {2, 5}},
        {"lower dominant", point_zoom, 9, 61, 100, {1, 4}},
        {"minority is strict", point_zoom, 61, 10, 100, {2, 5}},
        {"no pixels", point_zoom, 0, 0, 0, {2, 5}},
        {"stubby, upper", 0.11, 91, 9, 100, {0, 6}},
        {"stubby, lower", 0.11, 9, 91, 100, {1, 7}},
        {"stubby, neither", 0.11, 90, 9, 100, {3, 8}},
        {"stubby, no pixels", 0.11, 0, 0, 0, {3, 8}},
        {"at the limit is thin", 0.1, 51, 19, 100, {0, 9}},
        {"thin, lower", 0.1, 19, 51, 100, {1, 10}},
        {"thin, neither", 0.1, 50, 19, 100, open},
        {"thin, no pixels", 0.1, 0, 0, 0, open},
        {"no number is thin", nan, 51, 19, 100, {0, 9}},
        {"unmeasured", -1, 0, 0, -1, open},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(outcome_of(
                      [&](auto& vis, auto& diag)
                      {
                          if (c.rule == overview)
                              return grSplitBlock::classify_overview(c.upper, c.lower, c.total, vis, diag);
                          if (c.rule == point_zoom)
                              return grSplitBlock::classify_point_zoom(c.upper, c.lower, c.total, vis, diag);
                          return grSplitBlock::classify_block_zoom(c.upper, c.lower, c.total, c.rule, vis, diag);
                      }),
                  c.outcome)
            << c.name;
        // The same on the way through all counts, where no zoom was measured.
        if (c.rule == overview)
        {
            const grSplitBlock block = with_overview(c.upper, c.lower, c.total);
            EXPECT_EQ(classified(block), c.outcome) << c.name;
            EXPECT_EQ(block.point_zoom_test_pending() != 0, c.outcome == open) << c.name;
        }
    }
}

TEST(grSplitBlock, undecided_block_zoom_asks_for_vertical_triangles_and_an_empty_one_for_the_point_zoom)
{
    grSplitBlock block = with_overview(0, 0, 0);
    // No zoom was measured: a total of -1 is not 0, and neither is the vertical count of -1.
    EXPECT_EQ(classified(block), open);
    block.set_point_zoom_counts(0, 0, 0);
    EXPECT_FALSE(block.point_zoom_test_pending());
    EXPECT_EQ(classified(block), open);
    block.set_block_zoom_counts(0, 0, 0, 0, 0);
    EXPECT_TRUE(std::isnan(block.stubbyness()));
    EXPECT_EQ(classified(block), Outcome(2, 5));
    block.set_point_zoom_counts(61, 9, 100);
    EXPECT_EQ(classified(block), Outcome(0, 3));
    block.set_block_zoom_counts(5, 5, 10, 100, 100);
    EXPECT_EQ(classified(block), open);
    block.set_vertical_count(3);
    EXPECT_EQ(classified(block), open);
    block.set_vertical_count(0);
    EXPECT_EQ(classified(block), Outcome(2, 11));
    block.set_block_zoom_counts(91, 0, 1000, 30, 40); // 1000 pixels in a rim of 8 pi times 35.4
    EXPECT_DOUBLE_EQ(block.stubbyness(), 1000 / (std::sqrt(1250.0) * 8 * std::numbers::pi));
    EXPECT_EQ(classified(block), Outcome(3, 8));
}

TEST(grSplitBlock, counts_of_zones_add_up_until_none_is_pending)
{
    grSplitBlock block(7);
    block.add_pending_zone(3);
    block.add_pending_zone(5);
    block.add_overview_counts(10, 20, 30, 3);
    EXPECT_EQ(block.state(), 0);
    block.add_overview_counts(1, 2, 3, 5);
    EXPECT_EQ(block.state(), 2);
    EXPECT_EQ(block.upper_count_overview(), 11);
    EXPECT_EQ(block.lower_count_overview(), 22);
    EXPECT_EQ(block.alone_count_overview(), 33);
}
