#include "grStructureTraverser.h"

#include "tsStructures.h"

#include <gtest/gtest.h>

namespace
{
struct Visit
{
    std::string word;
    int depth, position;
    bool operator==(const Visit&) const = default;
};

std::ostream& operator<<(std::ostream& os, const Visit& visit)
{
    return os << visit.word << " at " << visit.position << " of level " << visit.depth;
}

// A traverser as an index into the words of a text, -1 for undefined.
class Words
{
public:
    explicit Words(const std::string& text)
    {
        std::vector<int> positions{0};
        std::istringstream words(ts_expanded(text));
        for (std::string word; words >> word;)
        {
            if (word == ")")
            {
                positions.pop_back();
                continue;
            }
            the_visits.push_back({word, static_cast<int>(positions.size()), positions.back()++});
            if (positions.size() == 1)
                the_last_of_root = size() - 1;
            if (word == "(")
                positions.push_back(0);
        }
    }

    int next() { return the_index + 1 < size() ? (++the_index, 1) : (the_index = the_last_of_root, 0); }
    int previous() { return the_index = the_index < 0 ? size() - 1 : the_index - 1, the_index >= 0; }
    int find(const std::string& words, int skip_first)
    {
        for (int i = the_index < 0 ? 0 : the_index + skip_first; i < size(); ++i)
            if (words.find(the_visits[static_cast<std::size_t>(i)].word) != std::string::npos)
                return the_index = i, 1;
        return the_index = the_last_of_root, 0;
    }
    void reset() { the_index = -1; }
    Visit visit() const { return the_index < 0 ? Visit() : the_visits[static_cast<std::size_t>(the_index)]; }

private:
    int size() const { return static_cast<int>(the_visits.size()); }

    std::vector<Visit> the_visits;
    int the_last_of_root = -1, the_index = -1;
};

class Protected : public grStructureTraverser
{
public:
    using grStructureTraverser::grStructureTraverser;
    using grStructureTraverser::position_on_last_element;
    using grStructureTraverser::position_on_last_of_structure_call;
};
}

TEST(grStructureTraverser, goes_through_the_words_of_a_text_under_random_steps)
{
    const struct
    {
        int type;
        const char* words;
    } finds[] = {{dgTYPE_LABEL, "1237"}, {dgTYPE_LINE_WIDTH, "w"}, {dgTYPE_STRUCTURE_CALL, "(^@-"}, {1000, " "}};
    for (unsigned seed = 0; seed < 150; ++seed)
    {
        const std::string text =
            seed < 10 ? ts_nested(static_cast<int>(seed) + 12, "( 1 ) & ( & )") : ts_random_text(seed);
        SCOPED_TRACE(text);
        tsStructures structures(text);
        Words words(text);
        grStructureTraverser traverser(&structures.root());
        std::mt19937 random(seed);
        for (int step = 0; step < 200; ++step)
        {
            const auto& [type, name] = finds[random() % 16 ? random() % 3 : 3];
            const unsigned choice = random() % 64;
            if (choice < 24)
                ASSERT_EQ(traverser.next(), words.next());
            else if (choice < 40)
                ASSERT_EQ(traverser.previous(), words.previous());
            else if (choice < 48)
                ASSERT_EQ(traverser.find(type) != nullptr, words.find(name, 0));
            else if (choice < 62)
                ASSERT_EQ(traverser.find(type, grSKIP_FIRST_ELEMENT) != nullptr, words.find(name, 1));
            else
                traverser.reset(), words.reset();
            ASSERT_EQ(traverser.undefined(), words.visit().word.empty());
            if (!traverser.undefined())
            {
                ASSERT_EQ((Visit{structures.word_of(*traverser.current(), *traverser.read()), traverser.depth(),
                                 traverser.position()}),
                          words.visit());
            }
        }
    }
}

TEST(grStructureTraverser, stays_undefined_in_an_empty_root)
{
    tsStructures structures("");
    grStructureTraverser traverser(&structures.root());
    EXPECT_EQ(traverser.next() + traverser.previous(), 0);
    EXPECT_EQ(traverser.find(dgTYPE_LABEL), nullptr);
    EXPECT_EQ(traverser.read(), nullptr);
    EXPECT_TRUE(traverser.empty() && traverser.undefined());
    EXPECT_EQ(traverser.depth(), 1);
}

TEST(grStructureTraverser, goes_on_behind_what_is_deleted_at_the_cursor)
{
    tsStructures structures("0 1 2 3 4");
    dgStructure& root = structures.root();
    grStructureTraverser traverser(&root);
    std::string met;
    while (traverser.next())
    {
        met += std::to_string(traverser.read()->label());
        if (met.size() % 2)
            root.delete_range(root.cursor(), root.cursor());
    }
    EXPECT_EQ(met, "01234");
    EXPECT_EQ(structures.text_of(root), "1 3 ");
    for (const grConsiderFirstElement consider : {grCONSIDER_FIRST_ELEMENT, grSKIP_FIRST_ELEMENT})
    {
        root.insert(new dgLabel(5));
        traverser.reset();
        traverser.next();
        root.delete_range(0, 0);
        EXPECT_EQ(traverser.find(dgTYPE_LABEL, consider), root.element(0));
        EXPECT_EQ(traverser.position(), 0);
    }
}

TEST(grStructureTraverser, steps_back_to_nothing_when_its_callers_were_cleared)
{
    tsStructures structures("1 ( 2 ( 3 ) )");
    dgStructure& root = structures.root();
    dgStructure* second = root.element(1)->called_structure();
    grStructureTraverser traverser(&root);
    EXPECT_EQ(traverser.previous(), 1);
    EXPECT_EQ(traverser.depth(), 3);
    root.clear();
    second->clear();
    EXPECT_EQ(traverser.previous(), 0);
    EXPECT_TRUE(traverser.undefined());
    EXPECT_EQ(traverser.current(), &root);
}

TEST(grStructureTraverser, positions_on_the_last_leaf)
{
    tsStructures structures("1 ( 2 ( 3 ) )");
    Protected traverser(&structures.root());
    traverser.position_on_last_element();
    EXPECT_EQ(traverser.depth(), 3);
    EXPECT_EQ(traverser.read()->label(), 3);
    EXPECT_EQ(traverser.position_on_last_of_structure_call(traverser.current()), 0);
    traverser.reset();
    structures.root().set_cursor(1);
    EXPECT_EQ(traverser.position_on_last_of_structure_call(&structures.root()), 1);
    EXPECT_EQ(traverser.depth(), 3);
}

TEST(grStructureTraverser, takes_100000_levels_there_and_back)
{
    tsStructures structures(ts_nested(100000, "1"));
    grStructureTraverser traverser(&structures.root());
    int forwards = 0, backwards = 0;
    while (traverser.next())
        ++forwards;
    traverser.reset();
    while (traverser.previous())
        ++backwards;
    EXPECT_EQ(forwards, 200001);
    EXPECT_EQ(backwards, 200001);
    EXPECT_EQ(traverser.find(dgTYPE_POLYLINE), nullptr);
}
