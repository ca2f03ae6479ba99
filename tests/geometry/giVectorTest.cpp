#include "giAngleDegrees.h"
#include "giPoint2.h"
#include "giPoint3.h"

#include <gtest/gtest.h>

namespace
{
const double pi = 3.14159265358979323846;

const struct
{
    const char* name;
    giVector2 from, to;
    double degrees;
} signed_angle_cases[] = {
    {"a quarter turn counter-clockwise is positive", {1, 0}, {0, 2}, 90},
    {"a quarter turn clockwise is negative", {1, 0}, {0, -3}, -90},
    {"half a turn is positive", {1, 0}, {-1, 0}, 180},
    {"the lengths do not matter", {5, 5}, {0, 0.1}, 45},
    {"equal directions", {2, 1}, {4, 2}, 0},
    {"the start counts", {0, 1}, {1, 1}, -45},
};
}

TEST(giVector2, angle_between_vectors_is_signed)
{
    for (const auto& c : signed_angle_cases)
        EXPECT_NEAR(c.from.angle_to(c.to).degrees(), c.degrees, 1e-12) << c.name;
}

TEST(giVector3, cross_product_follows_the_right_hand)
{
    const giVector3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    EXPECT_EQ(x.cross(y), z);
    EXPECT_EQ(y.cross(z), x);
    EXPECT_EQ(z.cross(x), y);
    EXPECT_NEAR(giVector3(1, 1, 0).angle_to(giVector3(-2, 2, 0)).radians(), pi / 2, 1e-15);
}

TEST(giVector3, unitising_a_null_vector_is_refused_and_changes_nothing)
{
    giVector3 null_vector, v(3, 0, -4);
    EXPECT_EQ(null_vector.unitise(), 0);
    EXPECT_EQ(null_vector, giVector3());
    EXPECT_EQ(v.unitise(), 1);
    EXPECT_NEAR(v.x(), 0.6, 1e-15);
    EXPECT_NEAR(v.z(), -0.8, 1e-15);
}

TEST(giPoint2, interpolation_is_exact_at_both_ends)
{
    // 0.1 + (0.7 - 0.1) is not 0.7 in doubles.
    const giPoint2 p(0.1, 1e17), q(0.7, 1);
    EXPECT_EQ(giPoint2::interpolate(p, q, 0), p);
    EXPECT_EQ(giPoint2::interpolate(p, q, 1), q);
    EXPECT_EQ(giPoint2::interpolate(giPoint2(0, 0), giPoint2(4, -8), 0.25), giPoint2(1, -2));
}

TEST(giPoint3, points_at_the_tolerance_are_coincident)
{
    const giPoint3 p(1, 2, 3), q(1, 5, 7);
    EXPECT_TRUE(p.coincident(q, 5));
    EXPECT_FALSE(p.coincident(q, 4.999));
    EXPECT_TRUE(p.coincident(p, 0));
}

TEST(giAngle, degrees_and_whole_turns)
{
    EXPECT_NEAR(giAngle(giAngleDegrees(180)).radians(), pi, 1e-15);
    EXPECT_NEAR((giAngleDegrees(270) + giAngleDegrees(180)).degrees(), 450, 1e-12);
    EXPECT_NEAR((giAngleDegrees(60) * 0.5).sin(), 0.5, 1e-15);
}
