#include "grStructureCutPaste.h"

#include "tsElements.h"
#include "tsNetwork.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>

namespace
{
constexpr int start_label = 5, end_label = 6;

using Elements = std::vector<const dgGraphicalElement*>;

// A list that deletes its slices.
struct Slices
{
    grStructureSlicecoDListPtr list;
    ~Slices()
    {
        for (grStructureSlice* slice : list)
            delete slice;
    }
};

struct PlainSlice
{
    const dgStructure* cake;
    const dgGraphicalElement* home;
    Elements elements;
    bool operator==(const PlainSlice&) const = default;
};

// The rules word for word on plain vectors: every search starts at the first element, calls are followed by recursion.
class Plain
{
public:
    std::map<const dgStructure*, Elements> structures;
    std::vector<PlainSlice> slices;

    int cut(const dgStructure* structure, int recursive)
    {
        for (;;)
        {
            Elements& elements = structures[structure];
            PlainSlice slice{structure, nullptr, {}};
            const int status = find_first(elements, slice);
            if (status != 0)
            {
                slices.clear();
                return status;
            }
            if (slice.elements.empty())
                break;
            slices.push_back(slice);
            const auto first = elements.begin() + (slice.home ? place(elements, slice.home) : 0);
            elements.erase(first, first + static_cast<std::ptrdiff_t>(slice.elements.size()));
        }
        if (!recursive)
            return 0;
        const Elements left = structures[structure];
        for (const dgGraphicalElement* element : left)
            if (const dgStructure* called = element->called_structure())
                if (const int status = cut(called, recursive))
                    return status;
        return 0;
    }

    int paste(const PlainSlice& slice)
    {
        Elements& elements = structures[slice.cake];
        const std::ptrdiff_t at = slice.home ? place(elements, slice.home) : 0;
        if (slice.home && at == 0)
            return 2;
        elements.insert(elements.begin() + at, slice.elements.begin(), slice.elements.end());
        return 0;
    }

private:
    // From 1, as 0 says that it is not there.
    static std::ptrdiff_t place(const Elements& elements, const dgGraphicalElement* element)
    {
        const auto found = std::find(elements.begin(), elements.end(), element);
        return found == elements.end() ? 0 : found - elements.begin() + 1;
    }

    static int find_first(const Elements& elements, PlainSlice& slice)
    {
        bool collecting = false;
        const dgGraphicalElement* before = nullptr;
        for (const dgGraphicalElement* element : elements)
        {
            const int label = element->type() == dgTYPE_LABEL ? element->label() : 0;
            if (!collecting && label == end_label)
                return 2;
            if (collecting && label == start_label)
                return 1;
            if (!collecting && label == start_label)
            {
                collecting = true;
                slice.home = before;
            }
            if (collecting)
                slice.elements.push_back(element);
            if (collecting && label == end_label)
                return 0;
            before = element;
        }
        slice.elements.clear();
        return collecting ? 1 : 0;
    }
};

std::vector<PlainSlice> plain(const grStructureSlicecoDListPtr& list)
{
    std::vector<PlainSlice> slices;
    for (const grStructureSlice* slice : list)
        slices.push_back({slice->cake_structure(), slice->home_element(), tsElementsOf(*slice->slice_structure())});
    return slices;
}

// Structures that call later ones, with labels that open and close slices, mostly in pairs, and elements that are
// there several times.
class Scene
{
public:
    explicit Scene(unsigned seed) : the_random(seed)
    {
        for (int i = 0; i < n_structures; ++i)
            structures.emplace_back(new dgClientStructure);
        for (int i = 0; i < n_structures; ++i)
            fill(i);
    }
    Plain plain_copy() const
    {
        Plain copy;
        for (const dgRef<dgStructure>& structure : structures)
            copy.structures[structure.get()] = tsElementsOf(*structure);
        return copy;
    }
    unsigned below(unsigned n) { return static_cast<unsigned>(the_random() % n); }

    static constexpr int n_structures = 4;
    std::vector<dgRef<dgStructure>> structures;
    std::vector<dgRef<dgGraphicalElement>> elements; // alive to the end, so that no address is used twice

private:
    void fill(int i)
    {
        const bool faulty = below(8) == 0;
        bool open = false;
        const unsigned count = below(16);
        for (unsigned k = 0; k < count; ++k)
        {
            const unsigned choice = below(10);
            if (choice < 4)
            {
                open = faulty && below(4) == 0 ? open : !open;
                add(i, new dgLabel(open ? start_label : end_label));
            }
            else if (choice < 5 && i + 1 < n_structures)
                add(i, new dgStructureCall(structures[static_cast<std::size_t>(i) + 1 +
                                                      below(n_structures - 1u - static_cast<unsigned>(i))]
                                               .get()));
            else if (choice < 6 && !elements.empty() && below(3) == 0)
                add_again(i);
            else
                add(i, new dgLabel(100));
        }
        if (open && !faulty)
            add(i, new dgLabel(end_label));
    }
    void add(int i, dgGraphicalElement* element)
    {
        elements.emplace_back(element);
        structures[static_cast<std::size_t>(i)]->add(element);
    }
    void add_again(int i)
    {
        dgGraphicalElement* element = elements[below(static_cast<unsigned>(elements.size()))].get();
        if (element->type() != dgTYPE_STRUCTURE_CALL && element->label() == 100)
            structures[static_cast<std::size_t>(i)]->add(element);
    }

    std::mt19937 the_random;
};

void expect_same(const Scene& scene, Plain& expected)
{
    for (const dgRef<dgStructure>& structure : scene.structures)
        ASSERT_EQ(tsElementsOf(*structure), expected.structures[structure.get()]);
}

dgRef<dgStructure> structure_of_labels(const std::vector<int>& labels)
{
    dgRef<dgStructure> structure(new dgClientStructure);
    for (const int label : labels)
        structure->add(new dgLabel(label));
    return structure;
}

std::vector<int> labels_of(const dgStructure& structure)
{
    std::vector<int> labels;
    for (int i = 0; i < structure.nelements(); ++i)
        labels.push_back(structure.element(i)->label());
    return labels;
}
}

TEST(grStructureCutPaste, agrees_with_plain_vectors_under_random_cuts_and_pastes)
{
    int cuts[3] = {}, pastes[3] = {};
    for (unsigned seed = 0; seed < 2000; ++seed)
    {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        Scene scene(seed);
        Plain expected = scene.plain_copy();
        Slices slices;
        const int recursive = static_cast<int>(scene.below(2));
        const int status =
            grStructureCutPaste::cut(scene.structures[0].get(), start_label, end_label, recursive, slices.list);
        ASSERT_EQ(status, expected.cut(scene.structures[0].get(), recursive));
        ++cuts[status];
        ASSERT_NO_FATAL_FAILURE(expect_same(scene, expected));
        ASSERT_EQ(plain(slices.list), expected.slices);

        if (scene.below(3) == 0 && scene.structures[0]->nelements() > 0)
        {
            // A home may go, and its slice can then not be pasted.
            const int gone = static_cast<int>(scene.below(static_cast<unsigned>(scene.structures[0]->nelements())));
            scene.structures[0]->delete_range(gone, gone);
            Elements& elements = expected.structures[scene.structures[0].get()];
            elements.erase(elements.begin() + gone);
        }
        for (int i = 0; i < slices.list.count() && scene.below(4) == 0; ++i)
        {
            const int single = grStructureCutPaste::paste(slices.list[i]);
            ASSERT_EQ(single, expected.paste(expected.slices[static_cast<std::size_t>(i)]));
            ++pastes[single];
            ASSERT_NO_FATAL_FAILURE(expect_same(scene, expected));
        }
        int expected_status = 0;
        for (std::size_t i = expected.slices.size(); i > 0 && !expected_status; --i)
            expected_status = expected.paste(expected.slices[i - 1]);
        ASSERT_EQ(grStructureCutPaste::paste(slices.list), expected_status);
        ASSERT_NO_FATAL_FAILURE(expect_same(scene, expected));
    }
    // The sequences reach every outcome often.
    for (const int count : {cuts[0], cuts[1], cuts[2], pastes[0], pastes[2]})
        EXPECT_GT(count, 20);
}

TEST(grStructureCutPaste, cuts_a_run_with_its_labels_and_puts_it_back)
{
    const dgRef<dgStructure> structure = structure_of_labels({1, 5, 2, 6, 3});
    Slices slices;
    ASSERT_EQ(grStructureCutPaste::cut(structure.get(), 5, 6, 0, slices.list), grSTRUCTURE_CUT_OK);
    EXPECT_EQ(labels_of(*structure), (std::vector<int>{1, 3}));
    ASSERT_EQ(slices.list.count(), 1);
    EXPECT_EQ(labels_of(*slices.list[0]->slice_structure()), (std::vector<int>{5, 2, 6}));
    EXPECT_EQ(slices.list[0]->home_element(), structure->element(0));
    EXPECT_EQ(slices.list[0]->cake_structure(), structure.get());
    EXPECT_EQ(grStructureCutPaste::paste(slices.list), grSTRUCTURE_PASTE_OK);
    EXPECT_EQ(labels_of(*structure), (std::vector<int>{1, 5, 2, 6, 3}));
    EXPECT_EQ(grStructureCutPaste::paste(slices.list[0]), grSTRUCTURE_PASTE_OK); // once more
    EXPECT_EQ(labels_of(*structure), (std::vector<int>{1, 5, 2, 6, 5, 2, 6, 3}));
}

TEST(grStructureCutPaste, tells_what_is_wrong_with_the_labels)
{
    const struct
    {
        const char* name;
        std::vector<int> labels;
        int start, end;
        grStructureCutStatus expected;
    } cases[] = {
        {"nothing to cut", {1, 2}, 5, 6, grSTRUCTURE_CUT_OK},
        {"end before start", {1, 6, 2, 5}, 5, 6, grSTRUCTURE_CUT_NO_START},
        {"not closed", {1, 5, 2}, 5, 6, grSTRUCTURE_CUT_UNCLOSED},
        {"opened twice", {5, 1, 5, 6}, 5, 6, grSTRUCTURE_CUT_UNCLOSED},
        {"the same label for both", {1, 5, 2, 5}, 5, 5, grSTRUCTURE_CUT_NO_START},
        {"wrong behind a good run", {5, 6, 1, 6}, 5, 6, grSTRUCTURE_CUT_NO_START},
    };
    for (const auto& c : cases)
    {
        const dgRef<dgStructure> structure = structure_of_labels(c.labels);
        Slices slices;
        EXPECT_EQ(grStructureCutPaste::cut(structure.get(), c.start, c.end, 0, slices.list), c.expected) << c.name;
        EXPECT_TRUE(slices.list.empty()) << c.name;
    }
}

TEST(grStructureCutPaste, a_failure_loses_what_was_cut_and_what_the_list_held)
{
    const dgRef<dgStructure> earlier = structure_of_labels({5, 6}), faulty = structure_of_labels({1, 5, 6, 2});
    faulty->add(new dgStructureCall(structure_of_labels({6}).get()));
    Slices slices;
    ASSERT_EQ(grStructureCutPaste::cut(earlier.get(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_OK);
    EXPECT_EQ(earlier->reference_count(), 2);
    EXPECT_EQ(grStructureCutPaste::cut(faulty.get(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_NO_START);
    EXPECT_TRUE(slices.list.empty());
    EXPECT_EQ(earlier->reference_count(), 1); // its slice is gone
    EXPECT_EQ(faulty->nelements(), 3);        // and so is the run of this one
}

TEST(grStructureCutPaste, finds_the_first_slice_without_cutting_it)
{
    const dgRef<dgStructure> structure = structure_of_labels({5, 2, 6, 3});
    structure->set_cursor(3);
    grStructureCutStatus status = grSTRUCTURE_CUT_NO_START;
    const std::unique_ptr<grStructureSlice> slice(grStructureCutPaste::find_first_slice(structure.get(), 5, 6, status));
    ASSERT_TRUE(slice);
    EXPECT_EQ(status, grSTRUCTURE_CUT_OK);
    EXPECT_EQ(slice->home_element(), nullptr);
    EXPECT_EQ(structure->nelements(), 4);
    EXPECT_EQ(structure->cursor(), 3);
    EXPECT_EQ(grStructureCutPaste::find_first_slice(structure.get(), 7, 8, status), nullptr);
    EXPECT_EQ(status, grSTRUCTURE_CUT_OK);
}

TEST(grStructureCutPaste, a_slice_keeps_its_structures_alive)
{
    Slices slices;
    {
        const dgRef<dgStructure> structure = structure_of_labels({5, 2, 6});
        grStructureCutPaste::cut(structure.get(), 5, 6, 0, slices.list);
    }
    EXPECT_EQ(grStructureCutPaste::paste(slices.list), grSTRUCTURE_PASTE_OK);
    EXPECT_EQ(slices.list[0]->cake_structure()->nelements(), 3);
}

TEST(grStructureCutPaste, cuts_structures_that_call_each_other_once_each)
{
    const dgRef<dgStructure> first = structure_of_labels({1, 5, 6}), second = structure_of_labels({2, 5, 6});
    first->add(new dgStructureCall(second.get()));
    first->add(new dgStructureCall(first.get()));
    second->add(new dgStructureCall(first.get()));
    Slices slices;
    EXPECT_EQ(grStructureCutPaste::cut(first.get(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_OK);
    EXPECT_EQ(slices.list.count(), 2);
    first->clear();
    second->clear();
}

TEST(grStructureCutPaste, takes_100000_levels)
{
    constexpr int levels = 100000;
    const dgRef<dgStructure> root = tsChain(levels);
    Slices slices;
    EXPECT_EQ(grStructureCutPaste::cut(root.get(), levels, levels + 1, 1, slices.list), grSTRUCTURE_CUT_UNCLOSED);
}

TEST(grStructureCutPaste, prints_its_outcomes)
{
    std::ostringstream os;
    os << grSTRUCTURE_CUT_UNCLOSED << ' ' << static_cast<grStructureCutStatus>(9) << ' ' << grSTRUCTURE_PASTE_NO_HOME
       << ' ' << static_cast<grStructurePasteStatus>(1);
    EXPECT_EQ(os.str(), "grSTRUCTURE_CUT_UNCLOSED Unknown value for grStructureCutStatus grSTRUCTURE_PASTE_NO_HOME "
                        "Unknown value for grStructurePasteStatus");
}
