#include "gr_make_tblock.h"

#include "meshes.h"

#include "giAngle.h"
#include "giXform3.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
using Block = std::unique_ptr<giTriBlock>;

// Every triangle faces as the normals of its nodes do, which have length 1.
void expect_normals_of_the_surface(const giTriBlock& block, double tolerance)
{
    for (const giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
        {
            const giVector3& normal = (*block.normals())[meshes::at(t[k])];
            EXPECT_NEAR(normal.length(), 1, 1e-12);
            EXPECT_GT(normal.dot(meshes::doubled_area(block, t).unit()), 1 - tolerance);
        }
}
}

TEST(gr_make_tblock, box_is_closed_and_faces_outwards)
{
    const Block box(gr_make_box_tblock(giBox3(giPoint3(1, 2, 3), giPoint3(2, 4, 6))));
    EXPECT_EQ(box->node_count(), 24);
    EXPECT_EQ(box->triangle_count(), 12);
    EXPECT_DOUBLE_EQ(meshes::volume(*box), 6);
    EXPECT_DOUBLE_EQ(meshes::area(*box), 22);
    expect_normals_of_the_surface(*box, 1e-12);
    EXPECT_EQ(box->texture_coordinates()->size(), 24u);
    EXPECT_FALSE(Block(gr_make_box_tblock(giBox3())));
}

TEST(gr_make_tblock, cube_stands_about_its_centre)
{
    const Block cube(gr_make_cube(giPoint3(1, 1, 1), 2));
    EXPECT_EQ(cube->box(), giBox3(giPoint3(0, 0, 0), giPoint3(2, 2, 2)));
}

TEST(gr_make_tblock, normals_are_means_of_the_triangles_around)
{
    // A roof of two squares at right angles with a ridge along y.
    const std::vector<giPoint3> nodes{{-1, 0, -1}, {0, 0, 0},  {1, 0, -1}, {-1, 1, -1},
                                      {0, 1, 0},   {1, 1, -1}, {9, 9, 9}};
    const Block roof(gr_make_tblock(nodes, {{0, 1, 4}, {0, 4, 3}, {1, 2, 5}, {1, 5, 4}}));
    ASSERT_TRUE(roof);
    const std::vector<giVector3>& normals = *roof->normals();
    EXPECT_LT((normals[0] - giVector3(-1, 0, 1).unit()).length(), 1e-12);
    // Node 1 has one triangle of the left side and two of the right, all of equal area.
    EXPECT_LT((normals[1] - giVector3(1, 0, 3).unit()).length(), 1e-12);
    EXPECT_EQ(normals[6], giVector3());
    EXPECT_FALSE(Block(gr_make_tblock(nodes, {{0, 1, 7}})));
    EXPECT_FALSE(Block(gr_make_tblock(nodes, {{0, -1, 2}})));
}

TEST(gr_make_tblock, transforms_keep_normals_upright_and_the_outside_outside)
{
    const struct
    {
        const char* name;
        giXform3 xform;
        double volume;
    } cases[] = {
        {"identity", giXform3(), 8},
        {"turned and moved",
         giXform3::rotation(giAngle(1), giVector3(1, 2, 3)) * giXform3::translation(giVector3(5, 6, 7)), 8},
        {"stretched askew", giXform3::rotation(giAngle(1), giVector3(1, 2, 3)) * giXform3::scaling(giVector3(1, 2, 5)),
         80},
        {"mirrored", giXform3::rotation(giAngle(1), giVector3(3, 2, 1)) * giXform3::scaling(giVector3(-1, 2, 1)), 16},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        const Block cube(gr_make_cube(giPoint3(0, 0, 0), 2));
        gr_transform_tblock(*cube, c.xform);
        EXPECT_NEAR(meshes::volume(*cube), c.volume, 1e-9);
        expect_normals_of_the_surface(*cube, 1e-9);
    }
}
