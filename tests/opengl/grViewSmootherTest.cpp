#include "grViewSmoother.h"

#include "dgLighting.h"
#include "dgPolyline.h"
#include "dgTriangleBlock.h"
#include "giVector2.h"
#include "renderScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace
{
struct Rest : Scene
{
    Rest()
    {
        renderer.accumulate(1);
        renderer.select_buffer(dgFRONT_BUFFER);
    }
    void come()
    {
        draw();
        while (smoother.idle() != grIDLE_DONE)
            ;
    }
    grViewSmoother smoother{renderer};
};
}

// A surface of one colour has an edge through a row or a column of pixels.
TEST(grViewSmoother, pixels_show_the_share_of_them_that_is_covered)
{
    for (int k = 0; k < 16; ++k)
    {
        const double edge = 9.5 + (2 * k + 1) / 32.0, covered = 10.5 - edge;
        Rest rest;
        const giPoint3 low(edge, edge, 0), side(200, edge, 0), top(edge, 200, 0);
        rest.add(new dgLighting(0));
        rest.add(triangles({low, side, top}));
        rest.come();
        const dgImage picture = rest.picture();
        const int full = pixel_at(picture, 20, 11).red;
        EXPECT_EQ(full, 204);
        EXPECT_EQ(pixel_at(picture, 11, 20).red, full);
        for (const Pixel& pixel : {pixel_at(picture, 10, 20), pixel_at(picture, 20, 10)})
            EXPECT_NEAR(pixel.red / double(full), covered, 1 / 16.0 + 1 / 255.0) << k;
        for (const Pixel& pixel : {pixel_at(picture, 9, 20), pixel_at(picture, 20, 9)})
            EXPECT_EQ(pixel.red, 0) << k;
    }
}

// Each of eight rows and columns of a pixel has one picture.
TEST(grViewSmoother, the_first_pictures_lie_about_the_middle_too)
{
    giVector2 sum(0, 0);
    std::set<double> rows, columns, middles;
    for (int i = 0; i < grViewSmoother::n_pictures; ++i)
    {
        sum += grViewSmoother::shift(i);
        rows.insert(grViewSmoother::shift(i).y());
        columns.insert(grViewSmoother::shift(i).x());
        middles.insert((i + 0.5) / 8 - 0.5);
        const int n = i + 1;
        EXPECT_LT(sum.length() / n, n == 2 || n == 4 || n == 8 ? 1 / 16.0 : 1) << n;
    }
    EXPECT_EQ(rows, middles);
    EXPECT_EQ(columns, middles);
}

TEST(grViewSmoother, what_has_no_edges_stays_to_the_last_bit)
{
    Rest rest;
    rest.add(rectangle(-5, -5, 80, 80));
    rest.draw();
    const dgImage before = rest.picture();
    rest.come();
    EXPECT_EQ(rest.smoother.complete(), 1);
    EXPECT_TRUE(same_pictures(rest.picture(), before));
    // What is drawn on the front by exclusive or comes off again.
    const dgRef<dgPolyline> line(new dgPolyline({{0, 10, 50}, {40, 10, 50}}));
    for (int i = 0; i < 2; ++i)
    {
        rest.renderer.select_driver(1);
        rest.draw(*line);
        rest.renderer.select_driver(0);
        EXPECT_EQ(rest.smoother.idle(), grIDLE_DONE);
        EXPECT_EQ(same_pictures(rest.picture(), before), i);
    }
}

TEST(grViewSmoother, means_follow_a_window_to_another_size)
{
    Rest rest;
    rest.add(rectangle(-5, -5, 200, 200));
    rest.come();
    rest.window.resize(100, 90);
    rest.view.camera().view_port_dc(rest.window.device_box());
    rest.come();
    EXPECT_EQ(rest.smoother.complete(), 1);
    EXPECT_EQ(pixel_at(rest.picture(), 99, 89), pixel_at(rest.picture(), 5, 5));
}
