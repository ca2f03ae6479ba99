#include "grSplitter.h"
#include "grDiagSplitter.h"
#include "grSplitBlock.h"

#include "splitScene.h"

#include "dgImage.h"
#include "giVector3.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <sstream>

namespace
{
using Outcome = std::pair<grBlockVisClass, grBlockDiagClass>;

// Keeps all that a split tells.
struct Watched : grDiagSplitter
{
    using grDiagSplitter::grDiagSplitter;
    void image(const std::string& name, const dgImage& image) override { images[name] = image; }
    void classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag) override
    {
        grDiagSplitter::classified(block, vis, diag);
        outcomes[block.block_index()] = {vis, diag};
        counts.emplace(block.block_index(), block);
    }

    std::map<std::string, dgImage> images;
    std::map<int, Outcome> outcomes;
    std::map<int, grSplitBlock> counts;
};

struct Split
{
    grBlockIdx sets[4];
    int result;

    Split(SplitScene& scene, grDiagSplitter* diagnostics, const giVector3& direction = giVector3(0, 0, 1),
          int size = 256, const grSplitterCallback& callback = grSplitterCallback())
        : result(grSplitter().split(&scene.window, scene.blocks, direction, size, sets[0], sets[1], sets[2], sets[3],
                                    callback, diagnostics))
    {}
    int count() const { return sets[0].count() + sets[1].count() + sets[2].count() + sets[3].count(); }
};
}

TEST(grSplitter, plates_above_each_other_are_seen_from_their_sides)
{
    SplitScene scene;
    const std::pair<int, Outcome> expected[] = {
        {scene.add_plate(0, 0, 10, 10, 5), {grVIS_UPPER, grDIAG_OVERVIEW_UPPER}},
        {scene.add_plate(0, 0, 10, 10, 3), {grVIS_BOTH, grDIAG_OVERVIEW_NEITHER}},
        {scene.add_plate(0, 0, 10, 10, 1, -1), {grVIS_LOWER, grDIAG_OVERVIEW_LOWER}},
        {scene.add_plate(11, 0, 20, 10, 1), {grVIS_BOTH, grDIAG_OVERVIEW_NEITHER}},
        // Covered from below the body is seen from above alone, but it hides its own underside.
        {scene.add_box(giPoint3(21, 0, 0), giPoint3(30, 10, 5)), {grVIS_BOTH, grDIAG_SELF_HIDER}},
        {scene.add_plate(21, 0, 30, 10, -1), {grVIS_LOWER, grDIAG_OVERVIEW_LOWER}},
    };
    Watched watched;
    const Split split(scene, &watched);
    ASSERT_TRUE(split.result);
    for (const auto& [block, outcome] : expected)
    {
        EXPECT_EQ(watched.outcomes[block], outcome) << block;
        EXPECT_TRUE(split.sets[outcome.first].contains(block)) << block;
    }
    EXPECT_EQ(split.count(), 6);
}

TEST(grSplitter, direction_tells_the_sides_and_blocks_stay_as_they_are)
{
    // Far from the origin, where single precision would tell nothing of them apart.
    SplitScene scene;
    scene.add_box(giPoint3(1e6, 0, 0), giPoint3(1e6, 10, 10), 4); // walls across x
    scene.add_box(giPoint3(1e6 + 0.1, 0, 0), giPoint3(1e6 + 0.1, 10, 10), 4);
    const giTriBlock before = *scene.owned[0];
    for (const double x : {-2.0, 3.0})
    {
        Watched watched;
        ASSERT_TRUE(Split(scene, &watched, giVector3(x, 0, 0)).result);
        for (const int wall : {0, 1})
        {
            EXPECT_EQ(watched.counts.at(wall).upper_count_overview() > 0, (x > 0) == (wall == 1));
            EXPECT_EQ(watched.counts.at(wall).lower_count_overview() > 0, (x > 0) == (wall == 0));
        }
    }
    EXPECT_EQ(*scene.owned[0], before);
}

TEST(grSplitter, small_blocks_are_decided_by_the_zooms)
{
    SplitScene scene;
    scene.add_plate(0, 0, 100, 100, 0); // 256 x 256 pixels
    const int stubby = scene.add_plate(10, 10, 13, 13, 1), hidden_part = scene.add_plate(30, 30, 33, 33, 1);
    scene.add_plate(30, 30, 31.5, 33, 2);
    const int thin = scene.add_plate(20, 20, 20.05, 60, 1), sliver = scene.add_plate(60, 20, 60.0005, 60, 1);
    const int upright = scene.add_box(giPoint3(80, 20, 1), giPoint3(80, 60, 9), 4); // walls alone
    Watched watched;
    ASSERT_TRUE(Split(scene, &watched).result);
    // Of 59 pixels at most, dominance in the overview needs 52 from above and less than 5 from below.
    EXPECT_EQ(watched.outcomes[stubby].first, grVIS_UPPER);
    EXPECT_EQ(watched.outcomes[hidden_part], (Outcome{grVIS_BOTH, grDIAG_STUBBY_NEITHER}));
    EXPECT_EQ(watched.counts.at(hidden_part).alone_count_block_zoom(), 128 * 128);
    EXPECT_NEAR(watched.counts.at(hidden_part).upper_count_block_zoom(), 64 * 128, 128);
    EXPECT_EQ(watched.outcomes[thin].first, grVIS_UPPER);
    // Thinner than a pixel of its block zoom: the point zoom enlarges its thickness.
    EXPECT_EQ(watched.counts.at(sliver).alone_count_block_zoom(), 0);
    EXPECT_GT(watched.counts.at(sliver).alone_count_point_zoom(), 100);
    EXPECT_EQ(watched.outcomes[sliver], (Outcome{grVIS_UPPER, grDIAG_POINT_ZOOM_UPPER}));
    EXPECT_EQ(watched.outcomes[upright], (Outcome{grVIS_UNDECIDED, grDIAG_POINT_ZOOM_NEITHER}));
    EXPECT_EQ(watched.counts.at(upright).vertical_count(), 4);
    EXPECT_EQ(watched.counts.at(sliver).vertical_count(), 0);
}

TEST(grSplitter, counts_over_several_zones_add_up)
{
    SplitScene scene;
    const int wide = scene.add_plate(0, 0, 100, 100, 0);
    for (int i = 0; i < 99; ++i)
        scene.add_plate(10 * (i % 10) + 1, 10 * (i / 10) + 1, 10 * (i % 10) + 9, 10 * (i / 10) + 9, 1);
    Watched watched;
    const Split split(scene, &watched); // 100 blocks ask for 6.1 zones
    ASSERT_TRUE(split.result);
    EXPECT_EQ(watched.images.count("overview_upper_5") + watched.images.count("overview_lower_6"), 1u);
    const grSplitBlock& counts = watched.counts.at(wide);
    EXPECT_EQ(counts.state(), 2);
    // All pixels of six images, seen wholly from below, and all but 99 squares of 8 x 8 in 10 x 10 from above.
    int pixels = 0;
    for (int zone = 0; zone < 6; ++zone)
        pixels += static_cast<int>(watched.images["overview_lower_" + std::to_string(zone)].rgba.size() / 4);
    EXPECT_EQ(counts.alone_count_overview(), pixels);
    EXPECT_EQ(counts.lower_count_overview(), pixels);
    EXPECT_NEAR(static_cast<double>(counts.upper_count_overview()) / pixels, 1 - 99 * 64 / 10000., 0.01);
    EXPECT_EQ(split.count(), 100);
}

TEST(grSplitter, callback_sees_every_section_and_can_stop_the_split)
{
    SplitScene scene;
    scene.add_plate(0, 0, 10, 10, 0);
    scene.add_plate(1, 1, 1.2, 1.2, -1);
    std::map<grSplitterProgressSection, std::pair<int, int>> last;
    ASSERT_TRUE(Split(scene, nullptr, giVector3(0, 0, 1), 128,
                      [&](grSplitterProgressSection section, int done, int total)
                      {
                          EXPECT_LE(done, total);
                          last[section] = {done, total};
                          return 1;
                      })
                    .result);
    EXPECT_EQ(last[grSPLITTER_OVERVIEW], std::pair(1, 1));
    EXPECT_EQ(last[grSPLITTER_POINT_ZOOM], std::pair(1, 1));
    EXPECT_EQ(last[grSPLITTER_BLOCK_ZOOM], std::pair(1, 1));
    EXPECT_EQ(last[grSPLITTER_CLASSIFY].second, 2);
    for (const auto& [section, progress] : last)
        for (int stop_at = 0; stop_at < progress.second; ++stop_at)
        {
            const Split stopped(scene, nullptr, giVector3(0, 0, 1), 128,
                                [&, wanted = section](grSplitterProgressSection now, int done, int)
                                { return now != wanted || done != stop_at; });
            EXPECT_FALSE(stopped.result);
            EXPECT_EQ(stopped.count(), 0);
        }
}

TEST(grSplitter, diagnostics_speak_of_interesting_blocks)
{
    SplitScene scene;
    scene.add_plate(0, 0, 10, 10, 0);
    const int small = scene.add_plate(1, 1, 1.2, 1.2, -1);
    scene.add_plate(2, 1, 2.2, 1.2, -1);
    std::ostringstream text;
    Watched watched(&text), silent;
    watched.interesting(small);
    silent.interesting(-1);
    ASSERT_TRUE(Split(scene, &watched, giVector3(0, 0, 1), 128).result);
    ASSERT_TRUE(Split(scene, &silent, giVector3(0, 0, 1), 128).result);
    // A plate of 0.2 x 0.2 in 10 x 10 covers 3 x 3 or so of 128 x 128 pixels, all of its zooms, and faces down.
    std::istringstream lines(text.str());
    std::vector<std::string> found;
    for (std::string line; std::getline(lines, line) && line != "grSplitBlock {";)
        found.push_back(line);
    ASSERT_EQ(found.size(), 10u) << text.str();
    EXPECT_EQ(std::vector(found.begin(), found.begin() + 6),
              (std::vector<std::string>{"interesting 1", "Interesting rgb: 1 0 0", "lower_zone 0", "upper_zone 0",
                                        "Pixel counts for zone 0", "block_index upper lower alone"}));
    EXPECT_EQ(found[6].substr(0, 4), "1 0 ");
    EXPECT_EQ(found[7].substr(0, 32), "Point zoom counts on block 1: 0 ");
    EXPECT_EQ(found[8], "Block zoom 1: 0 4096 4096, 64 x 64");
    EXPECT_EQ(found[9], "1 grVIS_LOWER grDIAG_STUBBY_LOWER");
    EXPECT_EQ(watched.images.size(), 2u + 6u); // of the overview, and of the two zooms of one block
    EXPECT_EQ(silent.images.size(), 2u + 12u);
    for (const char* name : {"overview_upper", "overview_lower", "block_zoom_alone_1", "point_zoom_upper_1"})
        EXPECT_EQ(watched.images.count(name), 1u) << name;
}

TEST(grSplitter, what_cannot_be_drawn_is_left_to_both_sides)
{
    const double infinity = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    SplitScene scene, nothing;
    const int plate = scene.add_plate(0, 0, 10, 10, 0);
    for (int i = 0; i < 3; ++i)
        i == 0 ? scene.add(std::make_unique<giTriBlock>())
               : scene.add_plate(0, 0, i == 1 ? infinity : 10, 10, i == 1 ? 1 : nan);
    scene.add_plate(0, 0, 10, 10, -1);
    Watched watched;
    const Split split(scene, &watched);
    EXPECT_EQ(watched.outcomes[plate].first, grVIS_UPPER);
    for (const int block : {1, 2, 3})
        EXPECT_EQ(watched.outcomes[block], (Outcome{grVIS_BOTH, grDIAG_NOT_CLASSIFIED}));
    EXPECT_EQ(split.sets[grVIS_BOTH].count(), 3);
    EXPECT_TRUE(Split(nothing, nullptr).result);
    for (const Split& refused : {Split(scene, nullptr, giVector3()), Split(scene, nullptr, giVector3(nan, 0, 1)),
                                 Split(scene, nullptr, giVector3(0, 0, 1), 10000000)})
        EXPECT_EQ(refused.result + refused.count(), 0);
}
