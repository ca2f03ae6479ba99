#include "grViewOperations.h"

#include "dgView.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <memory>
#include <numbers>
#include <utility>

namespace
{
struct Watcher : coReceiver
{
    explicit Watcher(dgView& view)
    {
        view.call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Watcher::changed>(this));
    }
    void changed() { ++the_changes; }
    int the_changes = 0;
};
}

TEST(grViewOperations, tell_of_a_turned_or_fitted_camera_once)
{
    tsScene scene;
    dgView& view = *scene.add_view();
    Watcher watcher(view);
    const auto told = [&] { return std::exchange(watcher.the_changes, 0); };
    grViewOperations::isometric(view);
    EXPECT_EQ(told(), 1);
    grViewOperations::reset(view);
    EXPECT_EQ(told(), 1);
    EXPECT_TRUE(giPoint3(0.5, 0, 0) == view.camera().view_centre()) << "the middle of the line";
    const double width = view.camera().view_window().width();
    grViewOperations::zoom(view, 3);
    grViewOperations::pan(view, giVector2(20, 0));
    EXPECT_EQ(told(), 0);
    EXPECT_NEAR(view.camera().view_window().width(), 3 * width, 1e-12);
    grViewOperations::turn(view, giPoint3(0.5, 0, 0), giVector3(0, 0, 2), giAngle(std::numbers::pi / 2));
    EXPECT_EQ(told(), 1);
    EXPECT_NEAR((giVector3(1, 0, 0) * view.camera().orientation()).y(), 1, 1e-12);
    grViewOperations::fit(view);
    EXPECT_EQ(told(), 1);
    EXPECT_NEAR((giVector3(1, 0, 0) * view.camera().orientation()).y(), 1, 1e-12) << "still looks this way";
    EXPECT_NEAR(view.camera().view_window().width(), width, 1e-12) << "the viewport is square";
}

TEST(grViewOperations, what_lies_on_a_sheet_keeps_its_place)
{
    tsScene scene;
    dgView& sheet = *scene.add_view();
    dgView& placed = *scene.add_view(0, giBox2(20, 30, 49, 69));
    grViewPaperParent paper(&sheet);
    grViewPaperChild child(&placed, &paper);
    const giBox2& port = placed.camera().view_port_dc();
    const giBox2 seen = placed.camera().view_window();

    grViewOperations::pan(sheet, giVector2(7, -50));
    EXPECT_EQ(port, giBox2(27, -20, 56, 19)) << "also beyond the edge";
    grViewOperations::pan(sheet, giVector2(-7, 50));
    EXPECT_EQ(port, giBox2(20, 30, 49, 69));
    // The sheet shows 0 to 99 with its middle at 49.5: edges lie at 19.5, 29.5, 49.5, 69.5.
    grViewOperations::zoom(sheet, 0.5);
    EXPECT_EQ(port, giBox2(-10, 10, 49, 89));
    for (int i = 0; i < 50; ++i)
        grViewOperations::zoom(sheet, 1.1);
    for (int i = 0; i < 50; ++i)
        grViewOperations::zoom(sheet, 1 / 1.1);
    EXPECT_EQ(port, giBox2(-10, 10, 49, 89)) << "whole pixels do not make it drift";
    placed.camera().view_port_dc(giBox2(0, 0, 9, 9));
    grViewOperations::pan(sheet, giVector2(1, 1));
    EXPECT_EQ(port, giBox2(1, 1, 10, 10)) << "from where it was put meanwhile";
    EXPECT_EQ(placed.camera().view_window(), seen);
    grViewOperations::pan(placed, giVector2(5, 5));
    EXPECT_EQ(port, giBox2(1, 1, 10, 10)) << "the child's own picture moves inside it";
}

TEST(grView, a_fit_keeps_locked_children_where_they_are_put)
{
    tsScene scene;
    grView parent(scene.add_view());
    grView child(scene.add_view(), &parent);
    scene.view(0)->camera().orientation(giXform3::translation(giVector3(50, 0, 0)));
    parent.view_bounding_box(giBox3(giPoint3(100, 100, 100), giPoint3(102, 102, 102)), dgBOUNDING_VIEW_BOX);
    const giXform3 fitted = scene.view(1)->camera().orientation();
    scene.view(0)->camera().world2view_altered();
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(scene.view(1)->camera().orientation().data()[i], fitted.data()[i], 1e-9) << i;
}

TEST(grViewOperations, look_from_each_side_with_each_axis_up)
{
    const struct
    {
        gi_Axis up;
        giVector3 right, back, above;
    } rows[] = {{gi_Z_AXIS, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                {gi_Y_AXIS, {1, 0, 0}, {0, 0, -1}, {0, 1, 0}},
                {gi_X_AXIS, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}}};
    tsScene scene;
    dgView& view = *scene.add_view();
    for (const auto& row : rows)
    {
        // What points to the right of the picture, and what up.
        const struct
        {
            grViewSide side;
            giVector3 right, above;
        } sides[] = {{grVIEW_FRONT, row.right, row.above}, {grVIEW_BACK, -row.right, row.above},
                     {grVIEW_LEFT, -row.back, row.above},  {grVIEW_RIGHT, row.back, row.above},
                     {grVIEW_TOP, row.right, row.back},    {grVIEW_BOTTOM, row.right, -row.back}};
        for (const auto& expected : sides)
        {
            grViewOperations::look(view, expected.side, row.up);
            const giXform3& seen = view.camera().orientation();
            EXPECT_NEAR(seen.transform(expected.right).x(), 1, 1e-12) << row.up << " " << expected.side;
            EXPECT_NEAR(seen.transform(expected.above).y(), 1, 1e-12) << row.up << " " << expected.side;
        }
    }
}
