#include "grViewUtils.h"

#include "gwMouseEvent.h"
#include "tsScene.h"

#include <gtest/gtest.h>

namespace
{
// A view of 200 x 100 pixels with its lower left pixel at (50, 20): its middle is (149.5, 69.5). One world unit is 50
// pixels and the origin shows in the middle.
class grViewUtilsTest : public testing::Test
{
protected:
    grViewUtilsTest() : the_view(the_scene.add_view(the_scene.add_window(400, 300), giBox2(50, 20, 249, 119)))
    {
        the_view->camera().view_window(giBox2(-2, -1, 2, 1));
    }

    giPoint2 device(const giPoint3& world) const
    {
        giPoint3 result;
        the_view->camera().transform(world, result, dgSPACE_WORLD, dgSPACE_DEVICE);
        return giPoint2(result.x(), result.y());
    }
    void expect_at(const giPoint3& world, const giPoint2& expected, const char* name) const
    {
        EXPECT_TRUE(device(world).coincident(expected, 1e-9)) << name << ": " << device(world);
    }

    tsScene the_scene;
    dgView* the_view;
};
}

TEST_F(grViewUtilsTest, pans_by_pixels)
{
    grViewUtils::pan(the_view, giVector2(30, -7));
    expect_at(giPoint3(0, 0, 0), giPoint2(179.5, 62.5), "origin");
    expect_at(giPoint3(1, 0, 5), giPoint2(229.5, 62.5), "depth does not matter");
}

TEST_F(grViewUtilsTest, brings_the_point_under_the_pointer_to_the_middle)
{
    // 69.5 pixels left of the middle and 30.5 above it.
    grViewUtils::pan_centre(the_view, gwMouseEvent(nullptr, 80, 100));
    expect_at(giPoint3(-69.5 / 50, 30.5 / 50, 0), giPoint2(149.5, 69.5), "clicked");
}

TEST_F(grViewUtilsTest, zooms_to_a_box_so_that_all_of_it_is_seen)
{
    const struct
    {
        const char* name;
        giBox2 box; // about (99.5, 94.5), which is world (-1, 0.5)
        double magnification;
    } cases[] = {
        {"proportions of the viewport", {49.5, 69.5, 149.5, 119.5}, 2},
        {"too wide", {49.5, 89.5, 149.5, 99.5}, 2},
        {"too high", {94.5, 69.5, 104.5, 119.5}, 2},
        {"corners the other way round", {149.5, 69.5, 49.5, 119.5}, 2},
        {"flat but long enough", {79.5, 94.5, 119.5, 94.5}, 5},
    };
    for (const auto& c : cases)
    {
        the_view->camera().view_window(giBox2(-2, -1, 2, 1));
        EXPECT_EQ(grViewUtils::zoom_to_box(the_view, c.box), 1) << c.name;
        expect_at(giPoint3(-1, 0.5, 0), giPoint2(149.5, 69.5), c.name);
        expect_at(giPoint3(-0.9, 0.5, 0), giPoint2(149.5 + 5 * c.magnification, 69.5), c.name);
    }
}

TEST_F(grViewUtilsTest, does_not_zoom_to_a_box_of_nothing)
{
    const giBox2 window = the_view->camera().view_window();
    for (const giBox2& box : {giBox2(), giBox2(100, 80, 100, 80), giBox2(100, 80, 101.9, 78.1)})
    {
        EXPECT_EQ(grViewUtils::zoom_to_box(the_view, box), 0) << box;
        EXPECT_EQ(the_view->camera().view_window(), window) << box;
    }
}

TEST_F(grViewUtilsTest, zooms_to_a_box_in_perspective)
{
    the_view->camera().projection(dgPROJECTION_PERSPECTIVE);
    EXPECT_EQ(grViewUtils::zoom_to_box(the_view, giBox2(49.5, 69.5, 149.5, 119.5)), 1);
    expect_at(giPoint3(-1, 0.5, 0), giPoint2(149.5, 69.5), "on the view plane");
}

TEST_F(grViewUtilsTest, removes_a_view_from_a_list)
{
    dgView* other = the_scene.add_view();
    dgViewcoDList views{other, the_view};
    EXPECT_EQ(grViewUtils::remove_view(views, other), 1);
    EXPECT_EQ(grViewUtils::remove_view(views, other), 0);
    EXPECT_EQ(views, dgViewcoDList{the_view});
}
