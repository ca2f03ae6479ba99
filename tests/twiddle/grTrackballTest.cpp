#include "grTrackball.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{
constexpr double pi = std::numbers::pi;
constexpr double radius = 0.4;
constexpr double joint = radius / std::numbers::sqrt2; // where the sphere meets the sheet

struct Rotation
{
    giVector3 axis{7, 8, 9};
    giAngle angle{-1};
};

Rotation rotation(const giPoint2& p1, const giPoint2& p2)
{
    Rotation result;
    grTrackball(radius).incremental_rotation(p1, p2, result.axis, result.angle);
    return result;
}
}

TEST(grTrackball, turns_by_what_the_pointer_rolls_on_sphere_and_sheet)
{
    const double third = std::sqrt(1 / 6.0);
    // The sheet is radius * radius / 2 / distance high; half the chord is the sine of half the angle.
    const double dx = std::sqrt(0.75) - std::sqrt(0.5), dz = std::sqrt(0.5) - 0.5 / std::sqrt(0.75);
    const double sheet_angle = 2 * std::asin(std::hypot(dx, dz) / 2);
    const struct
    {
        const char* name;
        giPoint2 p1, p2;
        giVector3 axis;
        double angle;
    } cases[] = {
        // Half a radius from the middle of a sphere is 30 degrees; right is about +y, up about -x.
        {"right on the sphere", {0, 0}, {radius / 2, 0}, {0, 1, 0}, pi / 6},
        {"up on the sphere", {0, 0}, {0, radius / 2}, {-1, 0, 0}, pi / 6},
        {"back is the same the other way round", {radius / 2, 0}, {0, 0}, {0, -1, 0}, pi / 6},
        {"up to the joint, where the height is radius / sqrt 2", {0, 0}, {joint, 0}, {0, 1, 0}, pi / 4},
        {"across the joint without a jump", {joint * (1 - 1e-9), 0}, {-joint * (1 + 1e-9), 0}, {0, -1, 0}, pi / 2},
        {"from the joint on the sheet", {joint, 0}, {radius * std::sqrt(0.75), 0}, {0, 1, 0}, sheet_angle},
        // One radius from the middle the sheet is half a radius high: the chord is radius * sqrt 2 long.
        {"around the middle on the sheet", {radius, 0}, {0, radius}, {-third, -third, 2 * third}, pi / 2},
        // A chord of sqrt(4 + 9 / 16) radii is longer than the ball is thick.
        {"from the middle to far outside: half a turn at most", {0, 0}, {2 * radius, 0}, {0, 1, 0}, pi},
    };
    for (const auto& c : cases)
    {
        const Rotation found = rotation(c.p1, c.p2);
        EXPECT_NEAR(found.angle.radians(), c.angle, 1e-8) << c.name;
        EXPECT_NEAR((found.axis - c.axis).length(), 0, 1e-8) << c.name << ": " << found.axis;
    }
}

TEST(grTrackball, ignores_a_step_shorter_than_its_resolution)
{
    const Rotation still = rotation(giPoint2(0.1, 0.1), giPoint2(0.1, 0.1));
    EXPECT_EQ(still.angle.radians(), 0);
    EXPECT_EQ(still.axis, giVector3(7, 8, 9));
    EXPECT_EQ(rotation(giPoint2(0, 0), giPoint2(0.99e-5, 0)).angle.radians(), 0);
    EXPECT_NEAR(rotation(giPoint2(0, 0), giPoint2(1.01e-5, 0)).angle.radians(), 1.01e-5 / radius, 1e-12);
}
