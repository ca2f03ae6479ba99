#include "giXform3.h"
#include "giAngleDegrees.h"
#include "giBox3.h"

#include <gtest/gtest.h>

namespace
{
const giAngle quarter_turn = giAngleDegrees(90);

void expect_near(const giPoint3& found, const giPoint3& expected, const char* name)
{
    EXPECT_TRUE(found.coincident(expected, 1e-12)) << name << ": " << found << " instead of " << expected;
}

giXform3 projection()
{
    // x and y shrink with z: w = 1 + z / 10.
    giXform3 xform;
    xform.element(2, 3, 0.1);
    return xform;
}
}

TEST(giXform3, a_product_applies_its_left_factor_first)
{
    const giXform3 turn = giXform3::rotation(quarter_turn, gi_Z_AXIS);
    const giXform3 move = giXform3::translation(giVector3(10, 0, 0));
    expect_near(giPoint3(1, 0, 0) * (turn * move), giPoint3(10, 1, 0), "turn, then move");
    expect_near(giPoint3(1, 0, 0) * (move * turn), giPoint3(0, 11, 0), "move, then turn");
}

TEST(giXform3, rotates_about_a_point_by_the_right_hand_rule)
{
    const struct
    {
        const char* name;
        giVector3 axis;
        giPoint3 through, point, expected;
    } cases[] = {
        {"x turns y to z", {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, {0, 0, 1}},
        {"y turns z to x", {0, 1, 0}, {0, 0, 0}, {0, 0, 1}, {1, 0, 0}},
        {"z turns x to y", {0, 0, 1}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
        {"the reversed axis turns back", {0, 0, -1}, {0, 0, 0}, {1, 0, 0}, {0, -1, 0}},
        {"the length of the axis does not matter", {0, 0, 7}, {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
        {"the centre stays", {1, 2, 3}, {4, 5, 6}, {4, 5, 6}, {4, 5, 6}},
        {"points of the axis stay", {1, 2, 3}, {4, 5, 6}, {5, 7, 9}, {5, 7, 9}},
        {"about a centre", {0, 0, 1}, {1, 1, 0}, {3, 1, 5}, {1, 3, 5}},
    };
    for (const auto& c : cases)
        expect_near(c.point * giXform3::rotation(quarter_turn, c.axis, c.through), c.expected, c.name);

    expect_near(giPoint3(1, 0, 0) * giXform3::rotation(giAngleDegrees(120), giVector3(1, 1, 1)), giPoint3(0, 1, 0),
                "a third of a turn about the diagonal permutes the axes");
}

TEST(giXform3, reports_the_identity_kind_by_construction)
{
    const giXform3 turn = giXform3::rotation(giAngleDegrees(30), gi_X_AXIS);
    EXPECT_TRUE(giXform3().is_identity());
    EXPECT_TRUE(giXform3::rotation(giAngle(0), giVector3(1, 2, 3), giPoint3(4, 5, 6)).is_identity());
    EXPECT_TRUE((giXform3() * giXform3::rotation(giAngle(0), gi_Y_AXIS)).is_identity());
    EXPECT_TRUE(giXform3().inverse().is_identity());
    EXPECT_FALSE(giXform3::rotation(giAngle(1e-300), gi_X_AXIS).is_identity());
    EXPECT_FALSE((turn * giXform3()).is_identity());
    EXPECT_FALSE((giXform3() * turn).is_identity());
    EXPECT_FALSE((turn * turn.inverse()).is_identity());
    EXPECT_EQ(turn * giXform3(), turn);

    giXform3 edited;
    edited.element(3, 1, 2);
    EXPECT_FALSE(edited.is_identity());
    EXPECT_EQ(giPoint3(0, 0, 0) * edited, giPoint3(0, 2, 0));
}

TEST(giXform3, vectors_turn_and_scale_but_do_not_move)
{
    const giXform3 xform = giXform3::scaling(2) * giXform3::translation(giVector3(5, 5, 5));
    EXPECT_EQ(giVector3(1, 2, 3) * xform, giVector3(2, 4, 6));
    EXPECT_EQ(giPoint3(1, 2, 3) * xform, giPoint3(7, 9, 11));
    EXPECT_EQ(giPoint3(3, 3, 3) * giXform3::scaling(giVector3(2, 3, 4), giPoint3(2, 2, 2)), giPoint3(4, 5, 6));
}

TEST(giXform3, the_inverse_undoes)
{
    const giXform3 turn = giXform3::rotation(giAngleDegrees(37), giVector3(1, -2, 0.5), giPoint3(10, 20, 30));
    const struct
    {
        const char* name;
        giXform3 xform;
    } cases[] = {
        {"rotation", turn},
        {"affine", turn * giXform3::scaling(giVector3(2, 0.5, -3)) * giXform3::translation(giVector3(1, 2, 3))},
        {"projective", turn * projection()},
    };
    const giPoint3 p(0.3, -1, 0.7);
    for (const auto& c : cases)
    {
        EXPECT_TRUE((p * c.xform * c.xform.inverse()).coincident(p, 1e-11)) << c.name;
        EXPECT_TRUE((p * (c.xform.inverse() * c.xform)).coincident(p, 1e-11)) << c.name;
    }
    EXPECT_TRUE(giXform3::scaling(giVector3(1, 0, 1)).inverse().is_identity()) << "singular";
}

TEST(giXform3, projective_products_divide_by_the_last_component)
{
    EXPECT_EQ(giPoint3(3, 6, 10) * projection(), giPoint3(1.5, 3, 5));
    // Translation by 10 along z first: w = 1 + 10 / 10.
    EXPECT_EQ(giPoint3(3, 6, 0) * (giXform3::translation(giVector3(0, 0, 10)) * projection()), giPoint3(1.5, 3, 5));
    EXPECT_EQ(giPoint3(3, 6, 10) * (projection() * giXform3::translation(giVector3(1, 1, 1))), giPoint3(2.5, 4, 6));
}

TEST(giXform3, a_full_turn_in_small_steps_closes)
{
    const giXform3 step = giXform3::rotation(giAngleDegrees(0.36), giVector3(1, 1, 0), giPoint3(1, 2, 3));
    giXform3 sum;
    for (int i = 0; i < 1000; ++i)
        sum *= step;
    expect_near(giPoint3(7, -2, 1) * sum, giPoint3(7, -2, 1), "1000 steps of 0.36 degrees");
}

TEST(giBox3, transforming_encloses_all_eight_corners)
{
    const giBox3 box(giPoint3(-1, -1, 0), giPoint3(1, 1, 2));
    const giBox3 turned = box.transform(giXform3::rotation(giAngleDegrees(45), gi_Z_AXIS));
    EXPECT_NEAR(turned.low().x(), -std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(turned.high().y(), std::sqrt(2.0), 1e-12);
    EXPECT_EQ(turned.low().z(), 0);
    EXPECT_EQ(turned.high().z(), 2);
    EXPECT_TRUE(giBox3().transform(giXform3::scaling(-1)).empty());
}
