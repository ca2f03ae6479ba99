#include "giTriBlock.h"
#include "giXform3.h"

#include <gtest/gtest.h>

TEST(giBoxArrPoint3, every_change_drops_the_remembered_box)
{
    giBoxArrPoint3 points;
    EXPECT_TRUE(points.box().empty());
    points.set(2, giPoint3(3, 3, 3));
    EXPECT_EQ(points.count(), 3);
    EXPECT_EQ(points[0], giPoint3());
    EXPECT_EQ(points.box(), giBox3(giPoint3(0, 0, 0), giPoint3(3, 3, 3)));
    points.set(0, giPoint3(-1, 0, 0));
    EXPECT_EQ(points.box().low(), giPoint3(-1, 0, 0));
    points.append(giPoint3(0, 0, 9));
    EXPECT_EQ(points.box().high(), giPoint3(3, 3, 9));
    points.transform(giXform3::translation(giVector3(1, 1, 1)));
    EXPECT_EQ(points.box().high(), giPoint3(4, 4, 10));
    points.truncate(2);
    EXPECT_EQ(points.box(), giBox3(giPoint3(0, 1, 1), giPoint3(1, 1, 1)));
    points.truncate(5);
    EXPECT_EQ(points.count(), 2);
}

TEST(giTriangle, an_edge_lies_opposite_the_vertex_of_its_number)
{
    const giTriangle triangle(10, 11, 12);
    const int edges[3][2] = {{11, 12}, {12, 10}, {10, 11}};
    for (int edge = 0; edge < 3; ++edge)
    {
        EXPECT_EQ(triangle.edge_start(edge), edges[edge][0]);
        EXPECT_EQ(triangle.edge_end(edge), edges[edge][1]);
    }
    EXPECT_NE(triangle, giTriangle(11, 12, 10));
}

TEST(giTriBlock, a_copy_shares_nothing)
{
    giTriBlock block;
    block.nodes().set(2, giPoint3(1, 2, 3));
    block.triangles().push_back(giTriangle(0, 1, 2));
    block.create_normals()[2] = giVector3(0, 0, 1);
    block.create_texture_coordinates()[1] = giPoint2(0.5, 0.5);
    ASSERT_EQ(block.normals()->size(), 3u);

    giTriBlock copy(block);
    EXPECT_EQ(copy, block);
    EXPECT_EQ(copy.curvatures(), nullptr);
    copy.nodes().set(0, giPoint3(-5, 0, 0));
    (*copy.normals())[2] = giVector3(1, 0, 0);
    copy.remove_texture_coordinates();
    EXPECT_EQ(block.box().low(), giPoint3(0, 0, 0));
    EXPECT_EQ((*block.normals())[2], giVector3(0, 0, 1));
    EXPECT_NE(block.texture_coordinates(), nullptr);
    EXPECT_EQ(&block.create_normals(), block.normals()) << "present arrays are kept";
    EXPECT_EQ((*block.normals())[2], giVector3(0, 0, 1));
}
