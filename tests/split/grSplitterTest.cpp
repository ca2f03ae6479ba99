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
/// The class of each block and everything that a split tells.
struct Watched : grDiagSplitter
{
    using grDiagSplitter::grDiagSplitter;
    void zone_counts(int zone, const std::vector<int>& blocks, const grPixelCountcoDynArr& upper,
                     const grPixelCountcoDynArr& lower, const grPixelCountcoDynArr& alone) override
    {
        grDiagSplitter::zone_counts(zone, blocks, upper, lower, alone);
        ++zones;
    }
    void image(const std::string& name, const dgImage& image) override { images[name] = image; }
    void classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag) override
    {
        grDiagSplitter::classified(block, vis, diag);
        outcomes[block.block_index()] = {vis, diag};
        counts.emplace(block.block_index(), block);
    }

    int zones = 0;
    std::map<std::string, dgImage> images;
    std::map<int, std::pair<grBlockVisClass, grBlockDiagClass>> outcomes;
    std::map<int, grSplitBlock> counts;
};

struct Sets
{
    grBlockIdx upper, lower, undecided, both;
    int count() const { return upper.count() + lower.count() + undecided.count() + both.count(); }
};

int split(SplitScene& scene, Sets& sets, Watched* watched = nullptr, const giVector3& direction = giVector3(0, 0, 1),
          int size = 256, const grSplitterCallback& callback = grSplitterCallback())
{
    return grSplitter().split(&scene.window, scene.blocks, direction, size, sets.upper, sets.lower, sets.undecided,
                              sets.both, callback, watched);
}

using Outcome = std::pair<grBlockVisClass, grBlockDiagClass>;
}

TEST(grSplitter, plates_above_each_other_are_seen_from_their_sides)
{
    SplitScene scene;
    const int top = scene.add_plate(0, 0, 10, 10, 5);
    const int middle = scene.add_plate(0, 0, 10, 10, 3);
    const int bottom = scene.add_plate(0, 0, 10, 10, 1, -1);
    const int free = scene.add_plate(11, 0, 20, 10, 1);
    const int body = scene.add_box(giPoint3(21, 0, 0), giPoint3(30, 10, 5));
    const int lid = scene.add_plate(21, 0, 30, 10, -1);
    Sets sets;
    Watched watched;
    ASSERT_TRUE(split(scene, sets, &watched));
    EXPECT_EQ(watched.outcomes[top], (Outcome{grVIS_UPPER, grDIAG_OVERVIEW_UPPER}));
    EXPECT_EQ(watched.outcomes[middle], (Outcome{grVIS_BOTH, grDIAG_OVERVIEW_NEITHER}));
    EXPECT_EQ(watched.outcomes[bottom], (Outcome{grVIS_LOWER, grDIAG_OVERVIEW_LOWER}));
    EXPECT_EQ(watched.outcomes[free], (Outcome{grVIS_BOTH, grDIAG_OVERVIEW_NEITHER}));
    // Covered from below the body is seen from above alone, but it hides its own underside.
    EXPECT_EQ(watched.outcomes[body], (Outcome{grVIS_BOTH, grDIAG_SELF_HIDER}));
    EXPECT_EQ(watched.outcomes[lid], (Outcome{grVIS_LOWER, grDIAG_OVERVIEW_LOWER}));
    EXPECT_TRUE(sets.upper.contains(top) && sets.upper.count() == 1);
    EXPECT_TRUE(sets.lower.contains(bottom) && sets.lower.contains(lid) && sets.lower.count() == 2);
    EXPECT_EQ(sets.both.count(), 3);
    EXPECT_EQ(sets.undecided.count(), 0);
}

TEST(grSplitter, direction_tells_the_sides_and_blocks_stay_as_they_are)
{
    SplitScene scene;
    const int first = scene.add_box(giPoint3(0, 0, 0), giPoint3(1, 10, 10));
    scene.add_plate(2, 0, 3, 1, 5);
    const giTriBlock before = *scene.owned[0];
    const struct
    {
        giVector3 direction;
        grBlockVisClass vis;
    } cases[] = {{{-2, 0, 0}, grVIS_UPPER}, {{3, 0, 0}, grVIS_LOWER}};
    for (const auto& c : cases)
    {
        SplitScene walls;
        // Walls across x; the plate between them faces neither way and is hidden by both.
        const int low = walls.add_box(giPoint3(0, 0, 0), giPoint3(0, 10, 10));
        walls.owned[0]->triangles().resize(4);
        const int high = walls.add_box(giPoint3(5, 0, 0), giPoint3(5, 10, 10));
        walls.owned[1]->triangles().resize(4);
        Sets sets;
        Watched watched;
        ASSERT_TRUE(split(walls, sets, &watched, c.direction));
        EXPECT_EQ(watched.counts.at(low).upper_count_overview() > 0, c.vis == grVIS_UPPER);
        EXPECT_EQ(watched.counts.at(high).upper_count_overview() > 0, c.vis == grVIS_LOWER);
    }
    Sets sets;
    ASSERT_TRUE(split(scene, sets, nullptr, giVector3(1, 2, 3)));
    EXPECT_EQ(*scene.owned[static_cast<std::size_t>(first)], before);
}

TEST(grSplitter, small_blocks_are_decided_by_the_zooms)
{
    SplitScene scene;
    scene.add_plate(0, 0, 100, 100, 0); // 256 x 256 pixels
    const int stubby = scene.add_plate(10, 10, 13, 13, 1);
    const int hidden_part = scene.add_plate(30, 30, 33, 33, 1);
    scene.add_plate(30, 30, 31.5, 33, 2);
    const int thin = scene.add_plate(20, 20, 20.05, 60, 1);
    const int sliver = scene.add_plate(60, 20, 60.0005, 60, 1);
    const int upright = scene.add_box(giPoint3(80, 20, 1), giPoint3(80, 60, 9)); // without its lids: walls alone
    scene.owned[static_cast<std::size_t>(upright)]->triangles().resize(4);
    Sets sets;
    Watched watched;
    ASSERT_TRUE(split(scene, sets, &watched));
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
}

TEST(grSplitter, counts_over_several_zones_add_up)
{
    SplitScene scene;
    const int wide = scene.add_plate(0, 0, 100, 100, 0);
    for (int i = 0; i < 99; ++i)
        scene.add_plate(10 * (i % 10) + 1, 10 * (i / 10) + 1, 10 * (i % 10) + 9, 10 * (i / 10) + 9, 1);
    Sets sets;
    Watched watched;
    ASSERT_TRUE(split(scene, sets, &watched)); // 100 blocks ask for 6.1 zones
    EXPECT_EQ(watched.zones, 6);
    EXPECT_EQ(watched.images.count("overview_upper_5"), 1u);
    const grSplitBlock& counts = watched.counts.at(wide);
    EXPECT_EQ(counts.state(), 2);
    EXPECT_TRUE(counts.pending_zones().empty());
    // All of the model alone, seen wholly from below, and all but 99 squares of 8 x 8 in 10 x 10 from above.
    EXPECT_EQ(counts.lower_count_overview(), counts.alone_count_overview());
    EXPECT_NEAR(static_cast<double>(counts.upper_count_overview()) / counts.alone_count_overview(),
                1 - 99 * 64 / 10000., 0.01);
    EXPECT_EQ(sets.count(), 100);
}

TEST(grSplitter, callback_sees_every_section_and_can_stop_the_split)
{
    SplitScene scene;
    scene.add_plate(0, 0, 10, 10, 0);
    scene.add_plate(1, 1, 1.2, 1.2, -1);
    std::map<grSplitterProgressSection, std::pair<int, int>> last;
    Sets sets;
    ASSERT_TRUE(split(scene, sets, nullptr, giVector3(0, 0, 1), 128,
                      [&](grSplitterProgressSection section, int done, int total)
                      {
                          EXPECT_LE(done, total);
                          last[section] = {done, total};
                          return 1;
                      }));
    EXPECT_EQ(last.size(), 4u);
    EXPECT_EQ(last[grSPLITTER_OVERVIEW], std::make_pair(1, 1));
    EXPECT_EQ(last[grSPLITTER_BLOCK_ZOOM].second, 1);
    for (const grSplitterProgressSection stop :
         {grSPLITTER_OVERVIEW, grSPLITTER_POINT_ZOOM, grSPLITTER_BLOCK_ZOOM, grSPLITTER_CLASSIFY})
    {
        Sets untouched;
        EXPECT_FALSE(split(scene, untouched, nullptr, giVector3(0, 0, 1), 128,
                           [stop](grSplitterProgressSection section, int, int) { return section != stop; }));
        EXPECT_EQ(untouched.count(), 0);
    }
}

TEST(grSplitter, diagnostics_speak_of_interesting_blocks)
{
    SplitScene scene;
    scene.add_plate(0, 0, 10, 10, 0);
    const int small = scene.add_plate(1, 1, 1.2, 1.2, -1);
    std::ostringstream text;
    Watched watched(&text);
    watched.interesting(small);
    Sets sets;
    ASSERT_TRUE(split(scene, sets, &watched, giVector3(0, 0, 1), 128));
    for (const char* label : {"interesting 1\n", "Interesting rgb: 1 0 0\n", "upper_zone 0\n", "lower_zone 0\n",
                              "Pixel counts for zone 0\nblock_index upper lower alone\n1 ",
                              "Point zoom counts on block 1", "Block zoom 1", "grSplitBlock {"})
        EXPECT_NE(text.str().find(label), std::string::npos) << label << "\n" << text.str();
    EXPECT_EQ(text.str().find("interesting 0"), std::string::npos);
    for (const char* name : {"overview_upper", "overview_lower", "block_zoom_alone_1", "point_zoom_upper_1"})
        EXPECT_EQ(watched.images.count(name), 1u) << name;
    EXPECT_EQ(watched.images.count("block_zoom_alone_0"), 0u);
    EXPECT_EQ(watched.images["block_zoom_alone_1"].width, 64);
}

TEST(grSplitter, what_cannot_be_drawn_is_left_to_both_sides)
{
    SplitScene scene;
    const int plate = scene.add_plate(0, 0, 10, 10, 0);
    const int empty = scene.add(std::make_unique<giTriBlock>());
    const int endless = scene.add_plate(0, 0, std::numeric_limits<double>::infinity(), 10, 1);
    const int odd = scene.add_plate(0, 0, 10, 10, std::numeric_limits<double>::quiet_NaN());
    scene.add_plate(0, 0, 10, 10, -1);
    Sets sets;
    Watched watched;
    ASSERT_TRUE(split(scene, sets, &watched));
    EXPECT_EQ(watched.outcomes[plate].first, grVIS_UPPER);
    for (const int block : {empty, endless, odd})
    {
        EXPECT_EQ(watched.outcomes[block], (Outcome{grVIS_BOTH, grDIAG_NOT_CLASSIFIED}));
        EXPECT_TRUE(sets.both.contains(block));
    }
    Sets untouched;
    EXPECT_FALSE(split(scene, untouched, nullptr, giVector3()));
    EXPECT_FALSE(split(scene, untouched, nullptr, giVector3(std::numeric_limits<double>::quiet_NaN(), 0, 1)));
    EXPECT_EQ(untouched.count(), 0);
    SplitScene nothing;
    EXPECT_TRUE(split(nothing, untouched));
}
