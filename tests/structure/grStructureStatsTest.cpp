#include "grStructureStats.h"

#include "tsStructures.h"

#include "dgPolyline.h"

#include <gtest/gtest.h>

// All counts of a larger scene are among the dumps.
TEST(grStructureStats, counts_each_structure_once_and_every_call)
{
    tsStructures structures("( 1 ( 2 ) ) & & ^ - w");
    dgStructure& root = structures.root();
    dgStructure* part = root.element(0)->called_structure();
    part->add(new dgPolyline({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
    const grStructureStats stats(&root);
    EXPECT_EQ(stats.structures(), 3);
    EXPECT_EQ(stats.elements(), 10);
    EXPECT_EQ(stats.elements_of_kind(dgELEMENT_ATTRIBUTE), 1);
    EXPECT_EQ(stats.elements_of_type(dgTYPE_STRUCTURE_CALL), 6);
    EXPECT_EQ(stats.features(dgTOPOLOGY_LINES), 2);
    ASSERT_EQ(stats.calls().size(), 3u);
    EXPECT_EQ(stats.calls()[0].structure, part);
    EXPECT_EQ(stats.calls()[0].calls, 3);
    EXPECT_EQ(stats.calls()[1].structure, &root);

    const grStructureStats root_alone(&root, grRECURSIVE_NO);
    EXPECT_EQ(root_alone.structures(), 1);
    EXPECT_EQ(root_alone.elements(), 6);
}
