#include "giAngleDegrees.h"
#include "giPlane.h"
#include "giTriBlock.h"
#include "giWorkplane3.h"
#include "giXform3.h"

#include <gtest/gtest.h>

namespace
{
const double pi = 3.14159265358979323846;

const struct
{
    const char* name;
    giVector2 from, to;
    double degrees;
} signed_angles[] = {
    {"a quarter turn counter-clockwise is positive", {1, 0}, {0, 2}, 90},
    {"a quarter turn clockwise is negative", {1, 0}, {0, -3}, -90},
    {"half a turn is positive", {1, 0}, {-1, 0}, 180},
    {"the lengths do not matter", {5, 5}, {0, 0.1}, 45},
    {"the start counts", {0, 1}, {1, 1}, -45},
};
}

TEST(giVector, has_signed_angles_right_handed_products_and_a_length_to_divide_by)
{
    for (const auto& c : signed_angles)
        EXPECT_NEAR(c.from.angle_to(c.to).degrees(), c.degrees, 1e-12) << c.name;
    EXPECT_NEAR(giVector3(1, 1, 0).angle_to(giVector3(-2, 2, 0)).radians(), pi / 2, 1e-15);
    EXPECT_NEAR((giAngleDegrees(270) + giAngleDegrees(180)).degrees(), 450, 1e-12);
    EXPECT_NEAR((giAngleDegrees(60) * 0.5).sin(), 0.5, 1e-15);
    const giVector3 axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(axes[i].cross(axes[(i + 1) % 3]), axes[(i + 2) % 3]);
    giVector3 none, v(3, 0, -4);
    EXPECT_FALSE(none.unitise());
    EXPECT_EQ(none, giVector3());
    EXPECT_TRUE(v.unitise());
    EXPECT_NEAR(v.x(), 0.6, 1e-15);
    EXPECT_NEAR(v.z(), -0.8, 1e-15);
}

TEST(giPoint, interpolation_is_exact_at_both_ends_and_the_tolerance_is_included)
{
    // 0.1 + (0.7 - 0.1) is not 0.7 in doubles.
    const giPoint2 p(0.1, 1e17), q(0.7, 1);
    EXPECT_EQ(giPoint2::interpolate(p, q, 0), p);
    EXPECT_EQ(giPoint2::interpolate(p, q, 1), q);
    EXPECT_EQ(giPoint2::interpolate(giPoint2(0, 0), giPoint2(4, -8), 0.25), giPoint2(1, -2));
    EXPECT_TRUE(giPoint3(1, 2, 3).coincident(giPoint3(1, 5, 7), 5));
    EXPECT_FALSE(giPoint3(1, 2, 3).coincident(giPoint3(1, 5, 7), 4.999));
    EXPECT_TRUE(giPoint3(1, 2, 3).coincident(giPoint3(1, 2, 3), 0));
}

TEST(giPlane, planes_and_workplanes_measure_in_model_units)
{
    const giPlane plane(giPoint3(0, 0, 2), giVector3(0, 0, 10));
    EXPECT_EQ(plane.distance(giPoint3(7, 8, 5)), 3);
    EXPECT_EQ(plane.distance(giPoint3(7, 8, 0)), -2);
    EXPECT_EQ(plane.project(giPoint3(7, 8, 5)), giPoint3(7, 8, 2));
    const giWorkplane3 workplane(giPoint3(1, 1, 1), giVector3(0, 2, 0), giVector3(0, 5, 3));
    EXPECT_EQ(workplane.x_axis(), giVector3(0, 1, 0));
    EXPECT_EQ(workplane.y_axis(), giVector3(0, 0, 1)) << "made square to the other";
    EXPECT_EQ(workplane.normal(), giVector3(1, 0, 0));
    EXPECT_EQ(workplane.to_world(giPoint2(2, 3)), giPoint3(1, 3, 4));
    EXPECT_EQ(workplane.to_workplane(giPoint3(9, 3, 4)), giPoint2(2, 3));
    EXPECT_EQ(workplane.plane().distance(giPoint3(9, 3, 4)), 8);
}

TEST(giBoxArrPoint3, every_change_drops_the_remembered_box)
{
    giBoxArrPoint3 points;
    EXPECT_TRUE(points.box().empty());
    points.set(2, giPoint3(3, 3, 3));
    EXPECT_EQ(points.count(), 3);
    EXPECT_EQ(points.box(), giBox3(giPoint3(0, 0, 0), giPoint3(3, 3, 3)));
    points.set(0, giPoint3(-1, 0, 0));
    EXPECT_EQ(points.box().low(), giPoint3(-1, 0, 0));
    points.append(giPoint3(0, 0, 9));
    EXPECT_EQ(points.box().high(), giPoint3(3, 3, 9));
    points.transform(giXform3::translation(giVector3(1, 1, 1)));
    EXPECT_EQ(points.box().high(), giPoint3(4, 4, 10));
    points.truncate(2);
    points.truncate(5);
    EXPECT_EQ(points.count(), 2);
    EXPECT_EQ(points.box(), giBox3(giPoint3(0, 1, 1), giPoint3(1, 1, 1)));
}

TEST(giTriBlock, edges_lie_opposite_their_vertices_and_copies_share_nothing)
{
    const giTriangle triangle(10, 11, 12);
    for (int edge = 0; edge < 3; ++edge)
    {
        EXPECT_EQ(triangle.edge_start(edge), 10 + (edge + 1) % 3);
        EXPECT_EQ(triangle.edge_end(edge), 10 + (edge + 2) % 3);
    }
    EXPECT_NE(triangle, giTriangle(11, 12, 10));

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
    EXPECT_NE(block.texture_coordinates(), nullptr);
    EXPECT_EQ(&block.create_normals(), block.normals()) << "present arrays are kept";
    EXPECT_EQ((*block.normals())[2], giVector3(0, 0, 1));
}
