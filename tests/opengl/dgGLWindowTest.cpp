#include "renderScene.h"

#include "dgLineColour.h"
#include "dgPolyline.h"

#include <gtest/gtest.h>

namespace
{
const Pixel black{0, 0, 0};
const Pixel white{255, 255, 255};
}

TEST(dgGLWindow, front_and_back_are_separate_until_they_are_swapped)
{
    Scene scene;
    ASSERT_EQ(scene.renderer.driver_capability(-1, dgCAPABILITY_DOUBLE_BUFFERING), 1);
    scene.renderer.background_colour(gsColour(1, 1, 1));
    scene.renderer.select_buffer(dgBACK_BUFFER);
    scene.renderer.erase(0);
    scene.renderer.select_buffer(dgFRONT_BUFFER);
    EXPECT_EQ(pixel_at(scene.picture(), 5, 5), black);
    scene.renderer.swap_buffers(dgSWAP_PLAIN);
    EXPECT_EQ(pixel_at(scene.picture(), 5, 5), white);
    scene.renderer.select_buffer(dgBACK_BUFFER);
    EXPECT_EQ(pixel_at(scene.picture(), 5, 5), black);
    scene.renderer.swap_buffers(dgSWAP_AND_CLEAR);
    EXPECT_EQ(pixel_at(scene.picture(), 5, 5), white);
}

TEST(dgGLWindow, both_drivers_use_the_selected_buffer)
{
    Scene scene;
    scene.renderer.select_buffer(dgBACK_BUFFER);
    scene.renderer.erase(0);
    scene.renderer.select_buffer(dgFRONT_BUFFER);
    scene.renderer.select_driver(1);
    const dgRef<dgPolyline> line(new dgPolyline({{0, 10, 0}, {40, 10, 0}}));
    scene.draw(*line);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);
    scene.renderer.select_buffer(dgBACK_BUFFER);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), black);
}

TEST(dgGLWindow, the_overlay_lies_over_the_picture_and_never_touches_it)
{
    Scene scene(64, 48, 1);
    scene.renderer.background_colour(gsColour(0, 0, 1));
    scene.renderer.erase(0);
    scene.renderer.swap_buffers(dgSWAP_PLAIN);
    scene.renderer.select_buffer(dgFRONT_BUFFER);
    const dgImage before = scene.picture();
    scene.renderer.select_driver(1);
    EXPECT_FALSE(scene.renderer.in_xor_mode());
    // Black on the overlay is a colour, not a hole.
    const dgRef<dgLineColour> colour(new dgLineColour(gsColour(0, 0, 0)));
    const dgRef<dgPolyline> line(new dgPolyline({{0, 10, 0}, {40, 10, 0}}));
    scene.view.begin();
    scene.view.execute(*colour);
    scene.view.execute(*line);
    scene.view.end();
    scene.renderer.select_driver(0);
    EXPECT_TRUE(same_pictures(scene.picture(), before));

    dgImage seen;
    scene.window.read_front(seen);
    EXPECT_EQ(pixel_at(seen, 20, 10), black);
    EXPECT_EQ(pixel_at(seen, 20, 11), (Pixel{0, 0, 255}));
    scene.renderer.erase(1);
    scene.window.read_front(seen);
    EXPECT_TRUE(same_pictures(seen, before));
}

TEST(dgGLWindow, erasing_the_overlay_in_the_middle_of_a_picture_does_not_divert_it)
{
    Scene scene(64, 48, 1);
    scene.view.erase(dgERASE_ZBUFFER_YES);
    const dgRef<dgPolyline> line(new dgPolyline({{0, 10, 0}, {40, 10, 0}}));
    scene.view.begin();
    scene.renderer.erase(1);
    scene.view.execute(*line);
    scene.view.end();
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);
}

TEST(dgGLWindow, says_when_there_is_something_new_to_see)
{
    Scene scene(64, 48, 1);
    const auto present = [&] { scene.window.blit_front_to(0, giBox2(0, 0, -1, -1)); };
    present();
    EXPECT_FALSE(scene.window.front_changed());
    scene.draw();
    EXPECT_FALSE(scene.window.front_changed()) << "the back buffer is not seen";
    scene.renderer.swap_buffers(dgSWAP_PLAIN);
    EXPECT_TRUE(scene.window.front_changed());
    present();
    scene.renderer.select_buffer(dgFRONT_BUFFER);
    scene.draw();
    EXPECT_TRUE(scene.window.front_changed());
    present();
    scene.renderer.erase(1);
    EXPECT_TRUE(scene.window.front_changed());
}

TEST(dgGLWindow, takes_a_new_size)
{
    Scene scene(64, 48, 1);
    scene.window.resize(100, 20);
    EXPECT_EQ(scene.renderer.window_box(), giBox2(0, 0, 99, 19));
    scene.renderer.background_colour(gsColour(1, 1, 1));
    scene.renderer.erase(0);
    EXPECT_EQ(count_pixels(scene.picture(), white), 100 * 20);
    EXPECT_EQ(scene.window.overlay()->width(), 100);
    scene.window.resize(0, 7);
    EXPECT_EQ(scene.window.width(), 1);
}

TEST(dgGLWindow, reads_back_boxes_that_reach_outside)
{
    Scene scene(10, 10);
    scene.renderer.background_colour(gsColour(1, 1, 1));
    scene.renderer.erase(0);
    dgImage image;
    scene.renderer.read_pixels(giBox2(-2, 8, 2, 12), image);
    ASSERT_EQ(image.width, 5);
    ASSERT_EQ(image.height, 5);
    EXPECT_EQ(count_pixels(image, white), 3 * 2);
    EXPECT_EQ(pixel_at(image, 2, 1), white);
    EXPECT_EQ(pixel_at(image, 1, 1), black);
    EXPECT_EQ(pixel_at(image, 2, 2), black);
}
