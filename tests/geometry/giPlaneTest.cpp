#include "giPlane.h"
#include "giWorkplane3.h"

#include <gtest/gtest.h>

TEST(giPlane, distance_is_in_model_units_and_positive_on_the_side_of_the_normal)
{
    const giPlane plane(giPoint3(0, 0, 2), giVector3(0, 0, 10));
    EXPECT_EQ(plane.distance(giPoint3(7, 8, 5)), 3);
    EXPECT_EQ(plane.distance(giPoint3(7, 8, 0)), -2);
    EXPECT_EQ(plane.project(giPoint3(7, 8, 5)), giPoint3(7, 8, 2));
}

TEST(giWorkplane3, squares_its_axes_and_maps_both_ways)
{
    const giWorkplane3 workplane(giPoint3(1, 1, 1), giVector3(0, 2, 0), giVector3(0, 5, 3));
    EXPECT_EQ(workplane.x_axis(), giVector3(0, 1, 0));
    EXPECT_EQ(workplane.y_axis(), giVector3(0, 0, 1));
    EXPECT_EQ(workplane.normal(), giVector3(1, 0, 0));
    EXPECT_EQ(workplane.to_world(giPoint2(2, 3)), giPoint3(1, 3, 4));
    EXPECT_EQ(workplane.to_workplane(giPoint3(9, 3, 4)), giPoint2(2, 3));
    EXPECT_EQ(workplane.plane().distance(giPoint3(9, 3, 4)), 8);
}
