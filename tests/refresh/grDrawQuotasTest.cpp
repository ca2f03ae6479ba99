#include "grDrawQuotas.h"
#include "grFollowedShare.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

// A frame of the quotas takes the time that there is and no more, whatever the scene.
TEST(gr_set_draw_quotas, hold_the_budget_and_use_it_up_where_a_heavy_category_has_more)
{
    std::mt19937 random(7);
    const auto number = [&](int high) { return static_cast<int>(random() % static_cast<unsigned>(high)); };
    for (int round = 0; round < 2000; ++round)
    {
        grElementCategories categories;
        double full_time = 0;
        for (const int k : {0, grLINE_CATEGORY, grTRIANGLE_CATEGORY, grPOINT_CATEGORY})
        {
            categories[static_cast<std::size_t>(k)].count = number(4) ? number(1000000) * 5000ll : 0;
            categories[static_cast<std::size_t>(k)].rate = 1 + number(1000000);
            full_time += categories[static_cast<std::size_t>(k)].count / categories[static_cast<std::size_t>(k)].rate;
        }
        const grDrawWeights weights{number(4), number(4), 1 + number(4)};
        const double budget = full_time * number(130) / 100.0;
        const double share = full_time > 0 ? std::min(1.0, budget / full_time) : 1.0;
        EXPECT_EQ(gr_set_draw_quotas(categories, weights, budget, full_time), share == 1.0);
        double seconds = 0, uniform_seconds = 0, whole_units = 0;
        bool more = false;
        for (const int k : {grLINE_CATEGORY, grTRIANGLE_CATEGORY, grPOINT_CATEGORY})
        {
            const grElementCategory& category = categories[static_cast<std::size_t>(k)];
            EXPECT_LE(category.quota, category.count);
            EXPECT_NEAR(category.ratio * category.count, category.quota, 1);
            seconds += category.quota / category.rate;
            uniform_seconds += std::trunc(category.count * share) / category.rate;
            whole_units += 4 / category.rate; // each of four products is cut off
            more |= category.quota < category.count;
        }
        const int triangles_alone = !(categories[grLINE_CATEGORY].count || categories[grPOINT_CATEGORY].count);
        EXPECT_LE(seconds, uniform_seconds * (1 + 1e-12)) << round;
        if (more && triangles_alone)
        {
            EXPECT_GE(seconds, uniform_seconds - whole_units) << round;
        }
        EXPECT_EQ(categories[0].quota, static_cast<long long>(categories[0].count * share)) << "no weight of its own";
    }
}

TEST(grFollowedShare, comes_back_when_what_made_frames_late_for_long_was_none_of_it)
{
    grFollowedShare share;
    share.start(0.1);
    for (int i = 0; i < 3000; ++i)
        share.frame_drawn(0, 10);
    for (int i = 0; i < 60; ++i)
        share.frame_drawn(share.share(), 0.1);
    EXPECT_EQ(share.share(), 1);
}

// What frames took since a start at 0.5, and the share that follows.
TEST(grFollowedShare, follows_frames_that_grow_and_a_late_start_but_no_single_frame)
{
    const struct
    {
        const char* name;
        std::vector<double> loads;
        double share;
    } rows[] = {
        {"one late frame", {0.95, 0.95, 5, 0.95, 0.95}, 0.5},
        {"one late frame in a growth", {0.9, 0.95, 5}, 0.5},
        {"growth that leads beyond the time", {0.9, 1, 1.2}, 0.5 * 0.9 / 1.1},
        {"growth within the time", {0.85, 0.9, 0.95}, 0.5},
        {"two of three late", {0.95, 1.2, 1.1}, 0.5 * 0.9 / 1.1},
        {"late from the start", {1.2, 1.2}, 0.5 * 0.9 / 1.2 * 0.9 / 1.2},
        {"far too late at the start", {3}, 0.25},
    };
    for (const auto& row : rows)
    {
        grFollowedShare share;
        share.start(0.5);
        for (const double load : row.loads)
            share.frame_drawn(share.share(), load);
        EXPECT_NEAR(share.share(), row.share, 1e-12) << row.name;
    }
}
