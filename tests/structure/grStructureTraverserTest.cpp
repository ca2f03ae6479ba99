#include "grStructureTraverser.h"

#include "tsNetwork.h"

#include <gtest/gtest.h>

namespace
{
tsVisit visit_of(const grStructureTraverser& traverser)
{
    return {traverser.current(), traverser.position(), traverser.depth(), traverser.read()};
}

// A traverser as an index into the flattened network, -1 for undefined.
class Flattened
{
public:
    explicit Flattened(dgStructure* root) : the_visits(tsFlatten(root)) {}

    int next() { return the_index + 1 < size() ? (++the_index, 1) : (the_index = last_of_root(), 0); }
    int previous()
    {
        if (the_index == -1)
            return size() > 0 ? (the_index = size() - 1, 1) : 0;
        return --the_index >= 0;
    }
    dgGraphicalElement* find(int type, int skip_first)
    {
        for (int i = the_index == -1 ? 0 : the_index + skip_first; i < size(); ++i)
            if (the_visits[static_cast<std::size_t>(i)].element->type() == type)
                return the_visits[static_cast<std::size_t>(the_index = i)].element;
        the_index = last_of_root();
        return nullptr;
    }
    void reset() { the_index = -1; }
    int undefined() const { return the_index == -1; }
    const tsVisit& visit() const { return the_visits[static_cast<std::size_t>(the_index)]; }

private:
    int size() const { return static_cast<int>(the_visits.size()); }
    int last_of_root() const
    {
        for (int i = size() - 1; i >= 0; --i)
            if (the_visits[static_cast<std::size_t>(i)].depth == 1)
                return i;
        return -1;
    }

    std::vector<tsVisit> the_visits;
    int the_index = -1;
};

class Protected : public grStructureTraverser
{
public:
    using grStructureTraverser::grStructureTraverser;
    using grStructureTraverser::position_on_last_element;
    using grStructureTraverser::position_on_last_of_structure_call;
};
}

TEST(grStructureTraverser, agrees_with_a_flattened_network_under_random_steps)
{
    for (unsigned seed = 0; seed < 200; ++seed)
    {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        const int circles = seed % 2;
        tsNetwork network(seed, circles ? 5 : 8, circles);
        Flattened flattened(&network.root());
        grStructureTraverser traverser(&network.root());
        std::mt19937 random(seed);
        for (int step = 0; step < 300; ++step)
        {
            const int types[] = {dgTYPE_LABEL, dgTYPE_LINE_WIDTH, dgTYPE_STRUCTURE_CALL, dgTYPE_POLYLINE};
            const int type = types[random() % 16 ? random() % 3 : 3];
            switch (random() % 8)
            {
            case 0:
            case 1:
            case 2: ASSERT_EQ(traverser.next(), flattened.next()) << "step " << step; break;
            case 3:
            case 4: ASSERT_EQ(traverser.previous(), flattened.previous()) << "step " << step; break;
            case 5: ASSERT_EQ(traverser.find(type), flattened.find(type, 0)) << "step " << step; break;
            case 6:
                ASSERT_EQ(traverser.find(type, grSKIP_FIRST_ELEMENT), flattened.find(type, 1)) << "step " << step;
                break;
            case 7:
                if (random() % 8 == 0)
                {
                    traverser.reset();
                    flattened.reset();
                }
            }
            ASSERT_EQ(traverser.undefined(), flattened.undefined()) << "step " << step;
            if (!flattened.undefined())
            {
                ASSERT_EQ(visit_of(traverser), flattened.visit()) << "step " << step;
            }
        }
    }
}

TEST(grStructureTraverser, enters_a_last_call_of_the_root_again_behind_the_end)
{
    const dgRef<dgStructure> root = tsChain(2);
    grStructureTraverser traverser(root.get());
    EXPECT_EQ(traverser.next() + traverser.next() + traverser.next(), 3);
    EXPECT_EQ(traverser.depth(), 2);
    EXPECT_EQ(traverser.next(), 0);
    EXPECT_EQ(traverser.depth(), 1);
    EXPECT_EQ(traverser.position(), 1);
    EXPECT_EQ(traverser.next(), 1);
    EXPECT_EQ(traverser.depth(), 2);
}

TEST(grStructureTraverser, stays_undefined_in_an_empty_root)
{
    const dgRef<dgStructure> root(new dgClientStructure);
    grStructureTraverser traverser(root.get());
    EXPECT_EQ(traverser.next(), 0);
    EXPECT_EQ(traverser.previous(), 0);
    EXPECT_EQ(traverser.find(dgTYPE_LABEL), nullptr);
    EXPECT_EQ(traverser.read(), nullptr);
    EXPECT_TRUE(traverser.empty());
    EXPECT_TRUE(traverser.undefined());
    EXPECT_EQ(traverser.depth(), 1);
}

TEST(grStructureTraverser, goes_on_behind_an_element_deleted_at_the_cursor)
{
    const dgRef<dgStructure> root(new dgClientStructure);
    for (int label = 0; label < 6; ++label)
        root->add(new dgLabel(label));
    grStructureTraverser traverser(root.get());
    std::vector<int> met;
    while (traverser.next())
    {
        met.push_back(traverser.read()->label());
        if (met.back() % 2 == 0)
            root->delete_range(root->cursor(), root->cursor());
    }
    EXPECT_EQ(met, (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(root->nelements(), 3);
}

TEST(grStructureTraverser, finds_what_follows_a_first_element_deleted_at_the_cursor)
{
    for (const grConsiderFirstElement consider : {grCONSIDER_FIRST_ELEMENT, grSKIP_FIRST_ELEMENT})
    {
        const dgRef<dgStructure> root(new dgClientStructure);
        for (int label = 0; label < 3; ++label)
            root->add(new dgLabel(label));
        grStructureTraverser traverser(root.get());
        traverser.next();
        root->delete_range(0, 0);
        EXPECT_EQ(traverser.find(dgTYPE_LABEL, consider), root->element(0));
        EXPECT_EQ(traverser.position(), 0);
    }
}

TEST(grStructureTraverser, steps_back_to_nothing_when_its_callers_were_cleared)
{
    const dgRef<dgStructure> root = tsChain(3);
    const dgRef<dgStructure> second(root->element(1)->called_structure()),
        third(second->element(1)->called_structure());
    grStructureTraverser traverser(root.get());
    EXPECT_EQ(traverser.previous(), 1);
    EXPECT_EQ(traverser.current(), third.get());
    root->clear();
    second->clear();
    EXPECT_EQ(traverser.previous(), 0);
    EXPECT_TRUE(traverser.undefined());
    EXPECT_EQ(traverser.current(), root.get());
}

TEST(grStructureTraverser, positions_on_the_last_leaf)
{
    const dgRef<dgStructure> root = tsChain(3);
    Protected traverser(root.get());
    traverser.position_on_last_element();
    EXPECT_EQ(traverser.depth(), 3);
    EXPECT_EQ(traverser.read()->label(), 3);
    EXPECT_EQ(traverser.position_on_last_of_structure_call(traverser.current()), 0);
    traverser.reset();
    root->set_cursor(1);
    EXPECT_EQ(traverser.position_on_last_of_structure_call(root.get()), 1);
    EXPECT_EQ(traverser.depth(), 3);
}

TEST(grStructureTraverser, takes_100000_levels_there_and_back)
{
    constexpr int levels = 100000;
    const dgRef<dgStructure> root = tsChain(levels);
    grStructureTraverser traverser(root.get());
    int forwards = 0, backwards = 0;
    while (traverser.next())
        ++forwards;
    EXPECT_EQ(forwards, 2 * levels - 1);
    traverser.reset();
    while (traverser.previous())
        ++backwards;
    EXPECT_EQ(backwards, 2 * levels - 1);
    EXPECT_EQ(traverser.find(dgTYPE_POLYLINE), nullptr);
}
