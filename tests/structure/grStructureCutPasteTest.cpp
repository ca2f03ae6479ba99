#include "grStructureCutPaste.h"

#include "tsStructures.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
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
}

TEST(grStructureCutPaste, cuts_runs_and_puts_them_back)
{
    for (const auto& row : ts_table(TS_TABLES "cuts.table", "cuts"))
    {
        SCOPED_TRACE(row[0]);
        tsStructures structures(row[1]);
        Slices slices;
        std::ostringstream status;
        status << grStructureCutPaste::cut(&structures.root(), 5, 6, std::stoi(row[2]), slices.list);
        EXPECT_EQ(status.str(), row[3]);
        EXPECT_EQ(structures.text_of(structures.root()), row[4]);
        std::string text;
        for (const grStructureSlice* slice : slices.list)
        {
            if (slice->home_element())
                text += structures.word_of(*slice->cake_structure(), *slice->home_element()) + ": ";
            text += structures.text_of(*slice->slice_structure());
        }
        EXPECT_EQ(text, row[5]);
        EXPECT_EQ(grStructureCutPaste::paste(slices.list), grSTRUCTURE_PASTE_OK);
        if (row[3] == "grSTRUCTURE_CUT_OK")
        {
            EXPECT_EQ(structures.text_of(structures.root()), row.size() > 6 ? row[6] : row[1] + " ");
        }
    }
}

TEST(grStructureCutPaste, equal_labels_end_a_run_before_they_start_one)
{
    tsStructures structures("1 [ 2 [");
    Slices slices;
    EXPECT_EQ(grStructureCutPaste::cut(&structures.root(), 5, 5, 0, slices.list), grSTRUCTURE_CUT_NO_START);
}

TEST(grStructureCutPaste, pastes_behind_the_first_place_of_a_home_and_not_at_all_without_one)
{
    tsStructures structures("1 2 [ ] 3 [ 4 ]");
    dgStructure& root = structures.root();
    Slices slices;
    ASSERT_EQ(grStructureCutPaste::cut(&root, 5, 6, 0, slices.list), grSTRUCTURE_CUT_OK);
    root.delete_range(2, 2);
    EXPECT_EQ(grStructureCutPaste::paste(slices.list),
              grSTRUCTURE_PASTE_NO_HOME); // the second comes first, and stops it
    EXPECT_EQ(structures.text_of(root), "1 2 ");
    EXPECT_EQ(grStructureCutPaste::paste(slices.list[0]), grSTRUCTURE_PASTE_OK);
    root.add(root.element(1));
    for (const int cursor : {0, 4})
    {
        root.set_cursor(cursor);
        EXPECT_EQ(grStructureCutPaste::paste(slices.list[0]), grSTRUCTURE_PASTE_OK); // once more
    }
    EXPECT_EQ(structures.text_of(root), "1 2 [ ] [ ] [ ] 2 ");
    EXPECT_EQ(root.cursor(), 3);
}

TEST(grStructureCutPaste, a_failure_loses_what_the_list_held)
{
    tsStructures earlier("[ ]"), faulty("1 ]");
    Slices slices;
    const int before = earlier.root().reference_count();
    ASSERT_EQ(grStructureCutPaste::cut(&earlier.root(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_OK);
    EXPECT_EQ(earlier.root().reference_count(), before + 1);
    EXPECT_EQ(grStructureCutPaste::cut(&faulty.root(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_NO_START);
    EXPECT_TRUE(slices.list.empty());
    EXPECT_EQ(earlier.root().reference_count(), before);
}

TEST(grStructureCutPaste, finds_the_first_slice_without_cutting_it)
{
    tsStructures structures("1 [ 2 ] 3");
    structures.root().set_cursor(3);
    grStructureCutStatus status = grSTRUCTURE_CUT_NO_START;
    const std::unique_ptr<grStructureSlice> slice(
        grStructureCutPaste::find_first_slice(&structures.root(), 5, 6, status));
    ASSERT_TRUE(slice);
    EXPECT_EQ(status, grSTRUCTURE_CUT_OK);
    EXPECT_EQ(slice->home_element(), structures.root().element(0));
    EXPECT_EQ(structures.text_of(structures.root()), "1 [ 2 ] 3 ");
    EXPECT_EQ(structures.root().cursor(), 3);
    EXPECT_EQ(grStructureCutPaste::find_first_slice(&structures.root(), 7, 8, status), nullptr);
    EXPECT_EQ(status, grSTRUCTURE_CUT_OK);
    EXPECT_EQ(grStructureCutPaste::find_first_slice(&structures.root(), 5, 8, status), nullptr);
    EXPECT_EQ(status, grSTRUCTURE_CUT_UNCLOSED);
}

TEST(grStructureCutPaste, takes_100000_levels)
{
    tsStructures structures(ts_nested(100000, "["));
    Slices slices;
    EXPECT_EQ(grStructureCutPaste::cut(&structures.root(), 5, 6, 1, slices.list), grSTRUCTURE_CUT_UNCLOSED);
}
