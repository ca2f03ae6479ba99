#include "grStructureStats.h"

#include "tsNetwork.h"

#include "dgPolyline.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(grStructureStats, counts_kinds_types_calls_and_features)
{
    const dgRef<dgStructure> root(new dgClientStructure), part(new dgClientStructure);
    part->add(new dgPolyline({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}));
    part->add(new dgLabel(1));
    root->add(new dgLineWidth(2));
    for (int i = 0; i < 3; ++i)
        root->add(new dgStructureCall(part.get()));
    root->add(new dgStructureCall(root.get()));
    root->add(new dgStructureCall(nullptr));

    const grStructureStats stats(root.get());
    EXPECT_EQ(stats.structures(), 2);
    EXPECT_EQ(stats.elements(), 8);
    EXPECT_EQ(stats.elements_of_kind(dgELEMENT_ATTRIBUTE), 1);
    EXPECT_EQ(stats.elements_of_kind(dgELEMENT_PRIMITIVE), 1);
    EXPECT_EQ(stats.elements_of_kind(dgELEMENT_OTHER), 6);
    EXPECT_EQ(stats.elements_of_type(dgTYPE_STRUCTURE_CALL), 5);
    EXPECT_EQ(stats.features(dgTOPOLOGY_LINES), 2);
    ASSERT_EQ(stats.calls().size(), 2u);
    EXPECT_EQ(stats.calls()[0].structure, part.get());
    EXPECT_EQ(stats.calls()[0].calls, 3);
    EXPECT_EQ(stats.calls()[1].structure, root.get());

    const grStructureStats root_alone(root.get(), grRECURSIVE_NO);
    EXPECT_EQ(root_alone.structures(), 1);
    EXPECT_EQ(root_alone.elements(), 6);
    EXPECT_EQ(root_alone.calls()[0].calls, 3);
    root->clear();
}

TEST(grStructureStats, prints_a_table)
{
    const dgRef<dgStructure> root(new dgClientStructure), part(new dgClientStructure);
    root->add(new dgLineWidth(2));
    root->add(new dgStructureCall(part.get()));
    std::ostringstream address, os;
    address << static_cast<const void*>(part.get());
    os << grStructureStats(root.get());
    const std::string name = address.str();
    EXPECT_EQ(os.str(), "grStructureStats {\n"
                        "  structures                                   2\n"
                        "  elements                                     2\n"
                        "  attribute                                    1\n"
                        "  primitive                                    0\n"
                        "  other                                        1\n"
                        "  points                                       0\n"
                        "  line segments                                0\n"
                        "  triangles                                    0\n"
                        "  type  class                           elements\n"
                        "  2     dgLineWidth                            1\n"
                        "  111   dgStructureCall                        1\n"
                        "  called structure                      elements       calls\n"
                        "  " +
                            name + std::string(34 - name.size(), ' ') +
                            "           0           1\n"
                            "}\n");
}
