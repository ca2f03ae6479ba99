#include "grSplitBlock.h"

#include "tsTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{
// A visibility class and a rule; {-1, -1} where nothing is decided.
using Outcome = std::pair<int, int>;
const Outcome undecided{-1, -1};

template <class Classify>
Outcome outcome_of(Classify classify)
{
    auto vis = static_cast<grBlockVisClass>(-1);
    auto diag = static_cast<grBlockDiagClass>(-1);
    const bool decided = classify(vis, diag) != 0;
    EXPECT_EQ(decided, vis != -1);
    return {vis, diag};
}

std::string text_of(const Outcome& outcome)
{
    return outcome == undecided ? "" : std::to_string(outcome.first) + ',' + std::to_string(outcome.second);
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
    for (const auto& row : ts_table(TS_TABLES "rules.table", "rules"))
    {
        std::istringstream counts(row[2]);
        int upper = 0, lower = 0, total = 0;
        counts >> upper >> lower >> total;
        const auto classify = [&](auto& vis, auto& diag)
        {
            if (row[1] == "overview")
                return grSplitBlock::classify_overview(upper, lower, total, vis, diag);
            if (row[1] == "point")
                return grSplitBlock::classify_point_zoom(upper, lower, total, vis, diag);
            return grSplitBlock::classify_block_zoom(upper, lower, total, std::stod(row[1]), vis, diag);
        };
        EXPECT_EQ(text_of(outcome_of(classify)), row[3]) << row[0];
        // The same on the way through all counts, where no zoom was measured.
        if (row[1] == "overview")
        {
            const grSplitBlock block = with_overview(upper, lower, total);
            EXPECT_EQ(text_of(classified(block)), row[3]) << row[0];
            EXPECT_EQ(block.point_zoom_test_pending() != 0, row[3].empty()) << row[0];
        }
    }
}

TEST(grSplitBlock, undecided_block_zoom_asks_for_vertical_triangles_and_an_empty_one_for_the_point_zoom)
{
    grSplitBlock block = with_overview(0, 0, 0);
    // No zoom was measured: a total of -1 is not 0, and neither is the vertical count of -1.
    EXPECT_EQ(classified(block), undecided);
    block.set_point_zoom_counts(0, 0, 0);
    EXPECT_FALSE(block.point_zoom_test_pending());
    EXPECT_EQ(classified(block), undecided);
    block.set_block_zoom_counts(0, 0, 0, 0, 0);
    EXPECT_TRUE(std::isnan(block.stubbyness()));
    EXPECT_EQ(classified(block), Outcome(2, 5));
    block.set_point_zoom_counts(61, 9, 100);
    EXPECT_EQ(classified(block), Outcome(0, 3));
    block.set_block_zoom_counts(5, 5, 10, 100, 100);
    EXPECT_EQ(classified(block), undecided);
    block.set_vertical_count(3);
    EXPECT_EQ(classified(block), undecided);
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
