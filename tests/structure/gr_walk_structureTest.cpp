#include "gr_walk_structure.h"

#include "grFindElements.h"

#include "tsStructures.h"

#include <gtest/gtest.h>

namespace
{
tsStructures* the_structures = nullptr; // for callbacks without user data
std::string the_record;

void note(dgStructure* structure, dgGraphicalElement* element)
{
    the_record += the_structures->word_of(*structure, *element) + ' ';
}

void note_post(dgStructure* structure, dgGraphicalElement* element)
{
    if (the_structures->word_of(*structure, *element) == "(")
        the_record += ") ";
}

template <class Walk>
std::string recorded(tsStructures& structures, Walk walk)
{
    the_structures = &structures;
    the_record.clear();
    walk(&structures.root());
    return the_record;
}

std::string without(std::string text, const std::string& word)
{
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word))
        text.erase(at, word.size());
    return text;
}

// The words outside of all groups, which are empty.
std::string top_of(const std::string& text)
{
    std::string top;
    int depth = 0;
    for (const char c : ts_expanded(text))
    {
        depth -= c == ')';
        if (depth == 0)
            top += c;
        if (c == '(' && depth++ == 0)
            top += ' ';
        if (c == ')' && depth == 0 && top.back() != ')')
            top += ')';
    }
    return top;
}
}

TEST(gr_walk_structure, goes_through_the_text_of_a_structure)
{
    std::vector<std::string> texts{"1 ( 2 ( 3 ) & - @ ^ ) ( ) w", "", "( ( @ 1 ) & ) ( & )"};
    for (unsigned seed = 0; seed < 100; ++seed)
        texts.push_back(ts_random_text(seed));
    for (int levels = 1; levels < 40; ++levels)
        texts.push_back(ts_nested(levels, "( 1 ) & ( & )"));
    for (const std::string& text : texts)
    {
        SCOPED_TRACE(text);
        tsStructures structures(text);
        for (const grRecursive recursive : {grRECURSIVE_YES, grRECURSIVE_NO, static_cast<grRecursive>(5)})
        {
            const std::string whole = recursive == grRECURSIVE_YES ? ts_expanded(text) : top_of(text);
            const std::string opened = without(whole, ") ");
            EXPECT_EQ(recorded(structures, [=](dgStructure* s) { gr_walk_structure(s, note, note_post, recursive); }),
                      whole);
            const auto with_data = [](dgStructure* s, dgGraphicalElement* e, void* data)
            {
                EXPECT_EQ(data, &the_record);
                note(s, e);
            };
            const auto post_with_data = [](dgStructure* s, dgGraphicalElement* e, void* data)
            {
                EXPECT_EQ(data, &the_record);
                note_post(s, e);
            };
            EXPECT_EQ(recorded(structures, [=](dgStructure* s)
                               { gr_walk_structure(s, &the_record, with_data, post_with_data, recursive); }),
                      whole);
            EXPECT_EQ(
                recorded(structures, [=](dgStructure* s) { gr_walk_structure(s, &the_record, with_data, recursive); }),
                opened);
            const auto labels = [](dgGraphicalElement* e)
            {
                if (e->type() == dgTYPE_LABEL)
                    the_record += std::to_string(e->label());
            };
            dgBaseList list{&structures.root()}; // what is there stays
            const int found = grFindElements(&structures.root()).find_elements(dgTYPE_LABEL, list, recursive);
            const std::string digits =
                recorded(structures, [=](dgStructure* s) { gr_walk_structure(s, labels, recursive); });
            EXPECT_EQ(digits.size(), std::count_if(whole.begin(), whole.end(), [](char c) { return std::isdigit(c); }));
            EXPECT_EQ(found, digits.size());
            EXPECT_EQ(list.count(), found + 1);
        }
        EXPECT_TRUE(text.empty() || structures.root().cursor() == structures.root().nelements() - 1);
    }
}

TEST(gr_walk_structure, lets_callbacks_delete_what_they_are_called_for)
{
    tsStructures structures("1 ( 1 ( 2 ) ) 2");
    int calls = 0;
    gr_walk_structure(
        &structures.root(), &calls,
        [](dgStructure* structure, dgGraphicalElement* element, void* count)
        {
            ++*static_cast<int*>(count);
            const bool is_call = element->type() == dgTYPE_STRUCTURE_CALL;
            structure->delete_range(structure->cursor(), structure->cursor());
            EXPECT_TRUE(!is_call || element->type() == dgTYPE_STRUCTURE_CALL); // alive until its call is over
        },
        [](dgStructure*, dgGraphicalElement*, void* count) { ++*static_cast<int*>(count); }, grRECURSIVE_YES);
    EXPECT_EQ(structures.root().nelements(), 0);
    EXPECT_EQ(calls, 6 + 2); // all elements, and the ends of two calls
}

TEST(gr_walk_structure, takes_100000_levels)
{
    tsStructures structures(ts_nested(100000, "1"));
    int elements = 0;
    gr_walk_structure(
        &structures.root(), &elements,
        [](dgStructure*, dgGraphicalElement*, void* count) { ++*static_cast<int*>(count); }, grRECURSIVE_YES);
    EXPECT_EQ(elements, 200001);
}

TEST(grFindElements, references_its_structure_while_it_exists)
{
    const dgRef<dgStructure> root(new dgClientStructure);
    {
        const grFindElements finder(root.get());
        EXPECT_EQ(root->reference_count(), 2);
    }
    EXPECT_EQ(root->reference_count(), 1);
}
