#include "giXform3.h"
#include "giAngleDegrees.h"
#include "giBox3.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
void expect_near(const giPoint3& found, const giPoint3& expected, const char* name)
{
    EXPECT_TRUE(found.coincident(expected, 1e-9)) << name << ": " << found << " instead of " << expected;
}

// x and y shrink with z: w = 1 + z / 10.
giXform3 projection()
{
    giXform3 xform;
    xform.element(2, 3, 0.1);
    return xform;
}

const giAngle quarter_turn = giAngleDegrees(90);
}

TEST(giXform3, turns_moves_scales_and_projects_points)
{
    const giXform3 turn = giXform3::rotation(quarter_turn, gi_Z_AXIS);
    const giXform3 move = giXform3::translation(giVector3(10, 0, 0));
    const auto about = [](const giVector3& axis, const giPoint3& through = {})
    { return giXform3::rotation(quarter_turn, axis, through); };
    const struct
    {
        const char* name;
        giXform3 xform;
        giPoint3 point, expected;
    } cases[] = {
        {"x turns y to z", about({1, 0, 0}), {0, 1, 0}, {0, 0, 1}},
        {"y turns z to x", about({0, 1, 0}), {0, 0, 1}, {1, 0, 0}},
        {"z turns x to y", about({0, 0, 7}), {1, 0, 0}, {0, 1, 0}},
        {"the reversed axis turns back", about({0, 0, -1}), {1, 0, 0}, {0, -1, 0}},
        {"points of the axis stay", about({1, 2, 3}, {4, 5, 6}), {5, 7, 9}, {5, 7, 9}},
        {"about a centre", about({0, 0, 1}, {1, 1, 0}), {3, 1, 5}, {1, 3, 5}},
        {"a third of a turn about the diagonal",
         giXform3::rotation(giAngleDegrees(120), giVector3(1, 1, 1)),
         {1, 0, 0},
         {0, 1, 0}},
        {"turn, then move", turn * move, {1, 0, 0}, {10, 1, 0}},
        {"move, then turn", move * turn, {1, 0, 0}, {0, 11, 0}},
        {"scale about a point", giXform3::scaling(giVector3(2, 3, 4), giPoint3(2, 2, 2)), {3, 3, 3}, {4, 5, 6}},
        {"project", projection(), {3, 6, 10}, {1.5, 3, 5}},
        {"move, then project", giXform3::translation(giVector3(0, 0, 10)) * projection(), {3, 6, 0}, {1.5, 3, 5}},
        {"project, then move", projection() * giXform3::translation(giVector3(1, 1, 1)), {3, 6, 10}, {2.5, 4, 6}},
    };
    for (const auto& c : cases)
        expect_near(c.point * c.xform, c.expected, c.name);
    EXPECT_EQ(giVector3(1, 2, 3) * (giXform3::scaling(2) * move), giVector3(2, 4, 6)) << "vectors do not move";
}

TEST(giXform3, products_inverses_and_determinants_agree)
{
    std::mt19937 random(11);
    const auto any = [&] { return std::uniform_real_distribution<double>(-2, 2)(random); };
    for (int i = 0; i < 200; ++i)
    {
        giXform3 factors[2];
        for (giXform3& factor : factors)
        {
            factor = giXform3::rotation(giAngle(any()), giVector3(any(), any(), any()), giPoint3(any(), any(), any()));
            EXPECT_NEAR(factor.determinant(), 1, 1e-12);
            if (i % 3 > 0)
                factor *= giXform3::scaling(giVector3(3 + any(), 3 + any(), -3 + any()), giPoint3(any(), any(), any()));
            if (i % 3 > 1)
                for (int row = 0; row < 4; ++row)
                    factor.element(row, 3, row < 3 ? any() / 50 : 1 + any() / 9);
        }
        const giXform3 product = factors[0] * factors[1];
        const giPoint3 p(any(), any(), any());
        expect_near(p * product, p * factors[0] * factors[1], "product");
        expect_near(p * product * product.inverse(), p, "inverse");
        expect_near(p * (product.inverse() * product), p, "inverse from the left");
        const double expected = factors[0].determinant() * factors[1].determinant();
        EXPECT_NEAR(product.determinant(), expected, 1e-9 * std::abs(expected));
    }
    const double rows[16] = {2, 0, 0, 1, 0, 3, 0, 0, 0, 0, 5, 0, 1, 0, 0, 7};
    EXPECT_NEAR(giXform3(rows).determinant(), 3 * 5 * (2 * 7 - 1), 1e-12);
    EXPECT_TRUE(giXform3::scaling(giVector3(1, 0, 1)).inverse().is_identity()) << "singular";
}

TEST(giXform3, reports_the_identity_kind_by_construction)
{
    const giXform3 turn = giXform3::rotation(giAngleDegrees(30), gi_X_AXIS);
    EXPECT_TRUE(giXform3().is_identity());
    EXPECT_TRUE(giXform3::rotation(giAngle(0), giVector3(1, 2, 3), giPoint3(4, 5, 6)).is_identity());
    EXPECT_TRUE((giXform3() * giXform3::rotation(giAngle(0), gi_Y_AXIS)).is_identity());
    EXPECT_TRUE(giXform3().inverse().is_identity());
    EXPECT_FALSE(giXform3::rotation(giAngle(1e-300), gi_X_AXIS).is_identity());
    EXPECT_FALSE((turn * giXform3()).is_identity() || (giXform3() * turn).is_identity());
    EXPECT_FALSE((turn * turn.inverse()).is_identity());
    giXform3 edited;
    edited.element(3, 1, 2);
    EXPECT_EQ(edited.kind(), giXFORM_AFFINE);
    EXPECT_EQ(projection().kind(), giXFORM_PROJECTIVE);
    edited.element(3, 1, 0);
    EXPECT_TRUE(edited.is_identity());
}

TEST(giXform3, boxes_enclose_all_eight_corners_of_their_images)
{
    const giBox3 box(giPoint3(-1, -1, 0), giPoint3(1, 1, 2));
    const giBox3 turned = box.transform(giXform3::rotation(giAngleDegrees(45), gi_Z_AXIS));
    expect_near(turned.low(), giPoint3(-std::sqrt(2.0), -std::sqrt(2.0), 0), "low");
    expect_near(turned.high(), giPoint3(std::sqrt(2.0), std::sqrt(2.0), 2), "high");
    EXPECT_TRUE(giBox3().transform(giXform3::scaling(-1)).empty());
}
