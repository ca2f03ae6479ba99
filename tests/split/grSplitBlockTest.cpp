#include "grSplitBlock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <sstream>

namespace
{
struct Outcome
{
    int decided;
    int vis = -1, diag = -1; // what was there before, unless decided
    bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& os, const Outcome& outcome)
{
    return os << outcome.decided << " (" << outcome.vis << ", " << outcome.diag << ")";
}

template <class Classify>
Outcome outcome_of(Classify classify)
{
    auto vis = static_cast<grBlockVisClass>(-1);
    auto diag = static_cast<grBlockDiagClass>(-1);
    const int decided = classify(vis, diag);
    return {decided, vis, diag};
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

const Outcome open{0};
}

TEST(grSplitBlock, overview_decides_by_dominance_and_then_by_size)
{
    const struct
    {
        const char* name;
        int upper, lower, total;
        Outcome outcome;
    } cases[] = {
        {"upper dominant", 950, 40, 1000, {1, 0, 0}},
        {"lower dominant", 40, 950, 1000, {1, 1, 1}},
        {"not dominant", 899, 40, 1000, {1, 3, 2}},
        {"not dominant and too few", 899, 40, 999, open},
        {"dominant is strict", 900, 40, 1000, {1, 3, 2}},
        {"minority is strict", 950, 100, 1000, {1, 3, 2}},
        {"dominance comes before size", 95, 4, 100, {1, 0, 0}},
        {"of 9 pixels nobody dominates", 9, 0, 9, open},
        {"of 10 they can", 10, 0, 10, {1, 0, 0}},
        {"limits are whole pixels", 14, 0, 15, {1, 0, 0}}, // 0.9 of 15 is 13.5
        {"none", 0, 0, 0, open},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(outcome_of([&](auto& vis, auto& diag)
                             { return grSplitBlock::classify_overview(c.upper, c.lower, c.total, vis, diag); }),
                  c.outcome)
            << c.name;
        // The same on the way through all counts, where no zoom was measured.
        EXPECT_EQ(classified(with_overview(c.upper, c.lower, c.total)), c.outcome) << c.name;
    }
}

TEST(grSplitBlock, point_zoom_always_decides)
{
    const struct
    {
        const char* name;
        int upper, lower, total;
        Outcome outcome;
    } cases[] = {
        {"upper dominant", 61, 9, 100, {1, 0, 3}}, {"dominance is strict", 60, 9, 100, {1, 2, 5}},
        {"lower dominant", 9, 61, 100, {1, 1, 4}}, {"minority is strict", 61, 10, 100, {1, 2, 5}},
        {"no pixels", 0, 0, 0, {1, 2, 5}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(outcome_of([&](auto& vis, auto& diag)
                             { return grSplitBlock::classify_point_zoom(c.upper, c.lower, c.total, vis, diag); }),
                  c.outcome)
            << c.name;
}

TEST(grSplitBlock, block_zoom_takes_stubby_and_thin_blocks_differently)
{
    const double nan = std::nan("");
    const struct
    {
        const char* name;
        int upper, lower, total;
        double stubbyness;
        Outcome outcome;
    } cases[] = {
        {"stubby, upper", 91, 9, 100, 0.11, {1, 0, 6}},
        {"stubby, lower", 9, 91, 100, 0.11, {1, 1, 7}},
        {"stubby, neither", 90, 9, 100, 0.11, {1, 3, 8}},
        {"stubby, no pixels", 0, 0, 0, 0.11, {1, 3, 8}},
        {"at the limit is thin", 51, 19, 100, 0.1, {1, 0, 9}},
        {"thin, lower", 19, 51, 100, 0.1, {1, 1, 10}},
        {"thin, neither", 50, 19, 100, 0.1, open},
        {"thin, no pixels", 0, 0, 0, 0.1, open},
        {"no number is thin", 51, 19, 100, nan, {1, 0, 9}},
        {"unmeasured", 0, 0, -1, -1, open},
    };
    for (const auto& c : cases)
        EXPECT_EQ(outcome_of(
                      [&](auto& vis, auto& diag) {
                          return grSplitBlock::classify_block_zoom(c.upper, c.lower, c.total, c.stubbyness, vis, diag);
                      }),
                  c.outcome)
            << c.name;
}

TEST(grSplitBlock, undecided_block_zoom_asks_for_vertical_triangles_and_an_empty_one_for_the_point_zoom)
{
    grSplitBlock block = with_overview(0, 0, 0);
    // No zoom was measured: a total of -1 is not 0, and neither is the vertical count of -1.
    EXPECT_EQ(classified(block), open);
    block.set_point_zoom_counts(0, 0, 0);
    EXPECT_EQ(classified(block), open);
    block.set_block_zoom_counts(0, 0, 0, 100, 100);
    EXPECT_EQ(classified(block), (Outcome{1, 2, 5}));
    block.set_point_zoom_counts(61, 9, 100);
    EXPECT_EQ(classified(block), (Outcome{1, 0, 3}));
    block.set_block_zoom_counts(5, 5, 10, 100, 100);
    EXPECT_EQ(classified(block), open);
    block.set_vertical_count(3);
    EXPECT_EQ(classified(block), open);
    block.set_vertical_count(0);
    EXPECT_EQ(classified(block), (Outcome{1, 2, 11}));

    grSplitBlock no_point_zoom = with_overview(0, 0, 0);
    no_point_zoom.set_block_zoom_counts(0, 0, 0, 0, 0);
    EXPECT_TRUE(std::isnan(no_point_zoom.stubbyness()));
    EXPECT_EQ(classified(no_point_zoom), (Outcome{1, 2, 5}));
}

TEST(grSplitBlock, stubbyness_compares_the_pixels_with_a_rim_along_the_zoom)
{
    grSplitBlock block;
    block.set_block_zoom_counts(0, 0, 1000, 30, 40);
    EXPECT_DOUBLE_EQ(block.stubbyness(), 1000 / (std::sqrt(1250.0) * 8 * std::numbers::pi));
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
    EXPECT_EQ(block.block_index(), 7);
    EXPECT_EQ(grSplitBlock().block_index(), -1);
    EXPECT_TRUE(block.point_zoom_test_pending());
    block.set_point_zoom_counts(0, 0, 0);
    EXPECT_FALSE(block.point_zoom_test_pending());
    EXPECT_FALSE(with_overview(0, 0, 1000).point_zoom_test_pending());
}

TEST(grSplitBlock, dump_names_every_field)
{
    grSplitBlock block = with_overview(1, 2, 3);
    block.zoom_point(giPoint3(1, 2, 3));
    std::ostringstream text;
    text << block;
    EXPECT_EQ(text.str(), "grSplitBlock {\n"
                          "  BlockSummary:\n"
                          "  the_zoom_point: (1, 2, 3)\n"
                          "  the_upper_count_overview: 1\n"
                          "  the_lower_count_overview: 2\n"
                          "  the_alone_count_overview: 3\n"
                          "  the_upper_count_point_zoom: 0\n"
                          "  the_lower_count_point_zoom: 0\n"
                          "  the_alone_count_point_zoom: -1\n"
                          "  the_upper_count_block_zoom: 0\n"
                          "  the_lower_count_block_zoom: 0\n"
                          "  the_alone_count_block_zoom: -1\n"
                          "  the_stubbyness: -1\n"
                          "  the_vertical_count-1\n" // no colon, no blank
                          "}\n");
}
