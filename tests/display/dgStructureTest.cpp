#include "dgClientStructure.h"
#include "dgCompiledStructure.h"
#include "dgLabel.h"
#include "dgNetworkWalk.h"
#include "dgRef.h"
#include "dgStructureIterator.h"
#include "gsStructureUtils.h"
#include "tsRandomNetwork.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
std::vector<int> labels(const dgStructure& structure)
{
    std::vector<int> found;
    for (int i = 0; i < structure.nelements(); ++i)
        found.push_back(structure.element(i)->label());
    return found;
}
}

TEST(dgStructure, agrees_with_a_plain_vector_under_random_edits)
{
    std::mt19937 random(20);
    dgClientStructure structure;
    std::vector<int> expected;
    for (int step = 0; step < 5000; ++step)
    {
        const int size = static_cast<int>(expected.size());
        const int position = static_cast<int>(random() % static_cast<unsigned>(size + 1)) - 1;
        structure.set_cursor(position);
        ASSERT_EQ(structure.cursor(), position);
        if (random() % 5 < 3)
        {
            EXPECT_EQ(structure.insert(new dgLabel(step)), position + 1);
            expected.insert(expected.begin() + (position + 1), step);
        }
        else if (position >= 0)
        {
            const int last = std::min(size - 1, position + static_cast<int>(random() % 4));
            structure.delete_range(position, last);
            expected.erase(expected.begin() + position, expected.begin() + (last + 1));
            EXPECT_EQ(structure.cursor(), position - 1);
        }
        if (step % 100 == 0)
        {
            ASSERT_EQ(labels(structure), expected) << "step " << step;
        }
    }
    EXPECT_EQ(labels(structure), expected);
}

TEST(dgStructure, cursor_stays_at_the_ends)
{
    dgClientStructure structure;
    structure.set_cursor(0);
    EXPECT_EQ(structure.cursor(), -1);
    EXPECT_EQ(structure.read(), nullptr);
    EXPECT_FALSE(structure.next());
    structure.insert(new dgLabel(1));
    structure.insert(new dgLabel(2));
    EXPECT_EQ(structure.read()->label(), 2);
    EXPECT_EQ(gsStructureUtils::element_index(structure.read(), &structure), 2);
    EXPECT_EQ(gsStructureUtils::element_index(nullptr, &structure), 0);
    EXPECT_FALSE(structure.next());
    EXPECT_EQ(structure.cursor(), 1);
    EXPECT_TRUE(structure.previous());
    EXPECT_FALSE(structure.previous());
    EXPECT_EQ(structure.cursor(), 0);

    dgStructureIterator it(structure);
    EXPECT_EQ(it()->label(), 1);
    EXPECT_TRUE(++it);
    EXPECT_FALSE(++it);
    EXPECT_EQ(structure.cursor(), 0);
}

TEST(dgStructure, finds_the_next_element_of_a_type_behind_the_cursor)
{
    dgClientStructure structure;
    structure.add(new dgLabel(1));
    structure.add(new dgLineColour(gsColour()));
    structure.add(new dgLabel(2));
    structure.set_cursor(0);
    EXPECT_TRUE(structure.find(dgTYPE_LABEL));
    EXPECT_EQ(structure.cursor(), 2);
    EXPECT_FALSE(structure.find(dgTYPE_LINE_COLOUR));
    EXPECT_EQ(structure.cursor(), 2);
}

TEST(dgStructure, box_covers_calls_and_transforms_and_follows_changes)
{
    const dgRef<dgStructure> part(new dgClientStructure);
    auto* line = new dgPolyline({{0, 0, 0}, {1, 1, 1}});
    part->add(line);
    const dgRef<dgStructure> root(new dgClientStructure);
    auto* move = new dgTransform(giXform3::translation({10, 0, 0}));
    root->add(move);
    root->add(new dgStructureCall(part.get()));
    EXPECT_EQ(root->bounding_box(), giBox3({10, 0, 0}, {11, 1, 1}));

    line->add({1, 1, 5});
    EXPECT_EQ(root->bounding_box(), giBox3({10, 0, 0}, {11, 1, 5}));
    move->transform(giXform3::translation({20, 0, 0}));
    EXPECT_EQ(root->bounding_box(), giBox3({20, 0, 0}, {21, 1, 5}));
    part->clear();
    EXPECT_TRUE(root->bounding_box().empty());
}

// Everything that is kept, of random networks under random edits, beside a walk that keeps nothing.
TEST(dgStructure, boxes_and_stamps_of_a_network_follow_all_edits)
{
    class Walk : public dgPlacingVisitor
    {
    public:
        bool enter(const dgStructure& structure)
        {
            stamp = std::max(stamp, structure.stamp());
            return dgPlacingVisitor::enter(structure);
        }
        bool visit(dgGraphicalElement* element)
        {
            if (!pass(*element))
                box.merge(element->bounding_box().transform(transform()));
            return true;
        }
        giBox3 box;
        unsigned long long stamp = 0;
    };
    const auto within = [](const giBox3& box, const giBox3& around)
    { return box.empty() || (around.contains(box.low(), 1e-9) && around.contains(box.high(), 1e-9)); };
    unsigned long long circles = 0;
    for (unsigned number = 0; number < 100; ++number)
    {
        tsRandomNetwork network(number);
        for (int i = 0; i < 60; ++i)
        {
            const dgStructure& asked = *network.any();
            Walk walk, after;
            dg_walk_network(asked, walk);
            const giBox3& box = asked.bounding_box();
            ASSERT_TRUE(within(walk.box, box) && within(box, walk.box)) << number << " " << i << walk.box << box;
            ASSERT_TRUE(asked.bounds().vague || within(box, asked.bounds().box)) << number << " " << i;
            circles += asked.bounds().vague;
            const unsigned long long stamp = asked.network_stamp();
            for (int edits = network.whole(0, 3); edits > 0; --edits)
                network.edit();
            dg_walk_network(asked, after);
            ASSERT_EQ(asked.network_stamp() > stamp, after.stamp > walk.stamp) << number << " " << i;
        }
    }
    EXPECT_GT(circles, 100u);
}

TEST(dgStructure, stamps_tell_content_from_changes_in_place_through_calls)
{
    const dgRef<dgStructure> part(new dgClientStructure);
    auto* line = new dgPolyline({{0, 0, 0}, {1, 1, 1}});
    part->add(line);
    const dgRef<dgStructure> root(new dgClientStructure);
    root->add(new dgStructureCall(part.get()));
    const auto network = root->network_stamp();
    const auto content = part->content_stamp();
    line->add({2, 2, 2});
    EXPECT_GT(root->network_stamp(), network);
    EXPECT_EQ(part->content_stamp(), content);
    part->add(new dgLabel(1));
    EXPECT_GT(part->content_stamp(), content);
}

TEST(dgStructure, an_element_in_several_structures_tells_them_all)
{
    auto* colour = new dgLineColour(gsColour(1, 0, 0));
    const dgRef<dgGraphicalElement> held(colour);
    dgRef<dgStructure> structures[3];
    for (dgRef<dgStructure>& structure : structures)
    {
        structure = dgRef<dgStructure>(new dgClientStructure);
        structure->add(colour);
    }
    structures[1]->add(colour);
    structures[0].reset(); // the first holder goes
    const auto first = structures[1]->stamp();
    const auto second = structures[2]->stamp();
    colour->colour(gsColour(0, 1, 0));
    EXPECT_GT(structures[1]->stamp(), first);
    EXPECT_GT(structures[2]->stamp(), second);
    structures[1]->delete_range(0, 0);
    const auto once = structures[1]->stamp();
    colour->colour(gsColour(0, 0, 1));
    EXPECT_GT(structures[1]->stamp(), once);
    EXPECT_EQ(colour->reference_count(), 3);

    // One that has left its only structure tells it nothing.
    dgClientStructure left;
    const dgRef<dgLineColour> leaver(new dgLineColour(gsColour()));
    left.add(leaver.get());
    left.clear();
    const auto after = left.stamp();
    leaver->colour(gsColour(0, 0, 1));
    EXPECT_EQ(left.stamp(), after);
}

TEST(dgCompiledStructure, breaks_runs_at_state_changes_but_not_at_labels)
{
    dgClientStructure structure;
    structure.add(new dgPointSet({{0, 0, 0}}));
    structure.add(new dgLabel(1));
    structure.add(new dgPointSet({{1, 0, 0}}));
    structure.add(new dgLineColour(gsColour()));
    structure.add(new dgPointSet({{2, 0, 0}}));
    structure.add(new dgPolyline({{0, 0, 0}, {1, 0, 0}}));
    std::vector<std::size_t> sizes; // 0 for an element of its own
    for (const auto& step : structure.compiled().steps())
        sizes.push_back(step.run ? step.run->primitives.size() : 0);
    EXPECT_EQ(sizes, (std::vector<std::size_t>{2, 0, 1, 1}));
}

TEST(dgCompiledStructure, moves_a_block_that_gets_or_loses_normals_to_another_run)
{
    dgClientStructure structure;
    dgTriangleBlock* blocks[2];
    for (dgTriangleBlock*& block : blocks)
    {
        block = new dgTriangleBlock(new giTriBlock, 1);
        block->block().nodes().append(giPoint3());
        structure.add(block);
    }
    const auto normals_of_runs = [&]
    {
        std::vector<int> normals;
        for (const auto& step : structure.compiled().steps())
            normals.push_back(step.run->has_normals);
        return normals;
    };
    EXPECT_EQ(normals_of_runs(), (std::vector<int>{0}));
    blocks[1]->block().create_normals();
    blocks[1]->block_changed();
    EXPECT_EQ(normals_of_runs(), (std::vector<int>{0, 1}));
    blocks[1]->block().remove_normals();
    blocks[1]->block_changed();
    EXPECT_EQ(normals_of_runs(), (std::vector<int>{0}));
}
