#include "renderScene.h"

#include "dgBackSurfaceColour.h"
#include "dgInteriorStyle.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineStyle.h"
#include "dgLineWidth.h"
#include "dgMarkerSize.h"
#include "dgPointSet.h"
#include "dgPolyline.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"
#include "gsColour.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{
const Pixel black{0, 0, 0};
const Pixel white{255, 255, 255};
const Pixel red{255, 0, 0};
const Pixel green{0, 255, 0};

dgPolyline* segment(const giPoint3& from, const giPoint3& to)
{
    return new dgPolyline({from, to});
}

// Adds surfaces that show their colour as it is.
void add_unlit(Scene& scene, const gsColour& colour, dgTriangleBlock* block)
{
    scene.add(new dgLighting(0));
    scene.add(new dgSurfaceColour(colour));
    scene.add(block);
}

int brightness(const Pixel& pixel)
{
    return pixel.red + pixel.green + pixel.blue;
}
}

TEST(dgGLDrawing, erases_exactly_the_viewport)
{
    Scene scene;
    scene.renderer.erase(0);
    scene.view.shading_context().background_colour = gsColour(0.2, 0.4, 0.6);
    scene.view.camera().view_port_dc(giBox2(3, 5, 20, 30));
    scene.view.erase(dgERASE_ZBUFFER_YES);
    const dgImage picture = scene.picture();
    const Pixel background{51, 102, 153};
    EXPECT_EQ(count_pixels(picture, background), 18 * 26);
    EXPECT_EQ(pixel_at(picture, 3, 5), background);
    EXPECT_EQ(pixel_at(picture, 20, 30), background);
    EXPECT_EQ(pixel_at(picture, 2, 5), black);
    EXPECT_EQ(pixel_at(picture, 21, 30), black);
}

TEST(dgGLDrawing, graduates_the_background_from_bottom_row_to_top_row)
{
    Scene scene;
    scene.renderer.erase(0);
    scene.view.shading_context().graduated_background = 1;
    scene.view.shading_context().bottom_colour = gsColour(0, 0, 1);
    scene.view.shading_context().top_colour = gsColour(1, 0, 1);
    scene.view.camera().view_port_dc(giBox2(2, 4, 61, 4 + 15));
    scene.view.erase(dgERASE_ZBUFFER_YES);
    const dgImage picture = scene.picture();
    for (int row = 0; row <= 15; ++row)
        EXPECT_EQ(pixel_at(picture, 30, 4 + row), (Pixel{17 * row, 0, 255})) << row;
    EXPECT_EQ(pixel_at(picture, 30, 3), black);
    EXPECT_EQ(pixel_at(picture, 30, 20), black);
    EXPECT_EQ(pixel_at(picture, 1, 10), black);
}

TEST(dgGLDrawing, a_clip_box_confines_a_redraw_whose_picture_is_the_same_inside)
{
    Scene scene;
    scene.view.shading_context().graduated_background = 1;
    add_unlit(scene, gsColour(0.3, 0.5, 0.7), rectangle(10, 10, 40, 30));
    scene.draw();
    const dgImage whole = scene.picture();

    scene.renderer.erase(0);
    const giBox2 box(5, 20, 15, 60); // reaches outside
    scene.renderer.clip(box);
    scene.draw();
    scene.renderer.clip(giBox2());
    const dgImage part = scene.picture();
    for (int y = 0; y < part.height; ++y)
        for (int x = 0; x < part.width; ++x)
            ASSERT_EQ(pixel_at(part, x, y), box.contains(giPoint2(x, y)) ? pixel_at(whole, x, y) : black)
                << x << ' ' << y;
    scene.draw();
    EXPECT_TRUE(same_pictures(scene.picture(), whole));
}

TEST(dgGLDrawing, covers_the_pixels_whose_centres_lie_in_a_triangle)
{
    Scene scene;
    add_unlit(scene, gsColour(1, 0, 0), triangles({{9.5, 9.5, 0}, {19.6, 9.5, 0}, {9.5, 19.6, 0}}));
    scene.draw();
    const dgImage picture = scene.picture();
    int covered = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
        {
            const int inside = x >= 10 && y >= 10 && x + y < 29.1;
            covered += inside;
            EXPECT_EQ(pixel_at(picture, x, y), inside ? red : black) << x << " " << y;
        }
    EXPECT_EQ(covered, 55);
}

TEST(dgGLDrawing, nearer_surfaces_hide_farther_ones_only_with_the_depth_test)
{
    Scene scene;
    add_unlit(scene, gsColour(1, 0, 0), rectangle(0, 0, 30, 30, 10));
    add_unlit(scene, gsColour(0, 1, 0), rectangle(10, 10, 40, 40, -10));
    scene.draw();
    EXPECT_EQ(pixel_at(scene.picture(), 20, 20), red);
    EXPECT_EQ(pixel_at(scene.picture(), 35, 35), green);
    scene.view.shading_context().set_hlhsr_mode(dgHLHSR_OFF);
    scene.draw();
    EXPECT_EQ(pixel_at(scene.picture(), 20, 20), green);
}

TEST(dgGLDrawing, what_is_drawn_over_a_network_is_not_cut_off_by_the_planes_fitted_to_it)
{
    Scene scene;
    scene.view.user_clip_planes(0);
    scene.add(new dgLighting(0));
    scene.add(rectangle(20, 10, 30, 20, 0));
    scene.add(rectangle(20, 10, 30, 20, -1)); // the planes lie a few units before and behind
    scene.draw();
    const dgRef<dgStructure> over(new dgClientStructure);
    over->add(new dgLighting(0));
    over->add(new dgSurfaceColour(gsColour(1, 0, 0)));
    for (const double z : {80.0, -80.0})
        over->add(rectangle(25, 5, 40, 12, z));
    scene.view.render_network(over.get());
    EXPECT_EQ(count_pixels(scene.picture(), Pixel{255, 0, 0}), 16 * 8);
    over->delete_range(2, 2); // the one behind is hidden by the network and seen beside it
    scene.draw();
    scene.view.render_network(over.get());
    EXPECT_EQ(count_pixels(scene.picture(), Pixel{255, 0, 0}), 16 * 8 - 6 * 3);
    scene.view.user_clip_planes(1);
    scene.draw();
    scene.view.render_network(over.get());
    EXPECT_EQ(count_pixels(scene.picture(), Pixel{255, 0, 0}), 0);
}

TEST(dgGLDrawing, back_faces_have_their_own_colour)
{
    Scene scene;
    scene.add(new dgBackSurfaceColour(gsColour(0, 1, 0)));
    add_unlit(scene, gsColour(1, 0, 0), rectangle(10, 10, 20, 20));
    const giXform3 half_turn = giXform3::rotation(giAngle(std::acos(-1.0)), gi_Y_AXIS, giPoint3(31.5, 0, 0));
    scene.add(new dgTransform(half_turn));
    scene.add(rectangle(10, 10, 20, 20));
    // A mirror turns the order of the nodes round but not the side that is seen.
    scene.add(new dgTransform(half_turn * giXform3::scaling(giVector3(1, -1, 1), giPoint3(0, 23.5, 0))));
    scene.add(rectangle(10, 10, 20, 20));
    scene.draw();
    const dgImage picture = scene.picture();
    EXPECT_EQ(pixel_at(picture, 15, 15), red);
    EXPECT_EQ(pixel_at(picture, 48, 15), green);
    EXPECT_EQ(count_pixels(picture, red), 2 * 121);
    EXPECT_EQ(count_pixels(picture, green), 121);
}

TEST(dgGLDrawing, lights_both_sides_by_the_normals_turned_to_the_eye)
{
    // Four squares: normals to the eye, away from it with the nodes turned round too, none at all, and none turned.
    Scene scene;
    const auto with_normals = [](dgTriangleBlock* block, const giVector3& normal)
    {
        for (giVector3& n : block->block().create_normals())
            n = normal;
        return block;
    };
    const auto turned_round = [](dgTriangleBlock* block)
    {
        for (giTriangle& t : block->block().triangles())
            t = giTriangle(t[0], t[2], t[1]);
        return block;
    };
    scene.add(new dgSurfaceColour(gsColour(0.6, 0.6, 0.6)));
    scene.add(with_normals(rectangle(0, 0, 9, 9), giVector3(0, 0, 1)));
    scene.add(with_normals(turned_round(rectangle(10, 0, 19, 9)), giVector3(0, 0, -1)));
    scene.add(rectangle(20, 0, 29, 9));
    scene.add(turned_round(rectangle(30, 0, 39, 9)));
    scene.add(with_normals(rectangle(40, 0, 49, 9), giVector3(1, 0, 0.1)));
    scene.draw();
    const dgImage picture = scene.picture();
    const int facing = brightness(pixel_at(picture, 5, 5));
    EXPECT_GT(facing, 3 * 0.6 * 255 * 0.8);
    for (const int x : {15, 25, 35})
        EXPECT_NEAR(brightness(pixel_at(picture, x, 5)), facing, 3) << x;
    EXPECT_LT(brightness(pixel_at(picture, 45, 5)), facing / 2);
}

TEST(dgGLDrawing, normals_follow_a_surface_that_is_scaled_unevenly)
{
    // A slope of 45 degrees, flattened to one tenth, shows as nearly facing the eye: with normals as without.
    Scene scene;
    const double s = std::sqrt(0.5);
    dgTriangleBlock* slope = triangles({{0, 0, 0}, {20, 0, -20}, {20, 20, -20}});
    for (giVector3& n : slope->block().create_normals())
        n = giVector3(s, 0, s);
    scene.add(new dgTransform(giXform3::scaling(giVector3(1, 1, 0.1))));
    scene.add(slope);
    scene.add(new dgTransform(giXform3::translation(giVector3(30, 0, 0))));
    scene.add(triangles({{0, 0, 0}, {20, 0, -20}, {20, 20, -20}}));
    scene.draw();
    const dgImage picture = scene.picture();
    EXPECT_NEAR(brightness(pixel_at(picture, 15, 5)), brightness(pixel_at(picture, 45, 5)), 3);
    EXPECT_GT(brightness(pixel_at(picture, 15, 5)), 3 * 0.8 * 255 * 0.7);
}

TEST(dgGLDrawing, fades_to_the_background_between_the_planes)
{
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
    {
        Scene scene;
        dgCamera& camera = scene.view.camera();
        camera.projection(projection);
        camera.projection_reference_point(giPoint3(32, 24, 200));
        scene.renderer.depth_cueing(1);
        scene.view.shading_context().background_colour = gsColour(0, 0, 1);
        add_unlit(scene, gsColour(1, 1, 1), rectangle(0, 0, 9, 47, 99.9));
        scene.add(rectangle(25, 20, 39, 30, 0));
        scene.add(rectangle(40, 20, 49, 30, -99.9));
        scene.draw();
        const dgImage picture = scene.picture();
        const auto seen = [&](double x, double z)
        {
            giPoint3 device;
            camera.transform(giPoint3(x, 25, z), device, dgSPACE_WORLD, dgSPACE_DEVICE);
            return pixel_at(picture, static_cast<int>(device.x()), static_cast<int>(device.y())).red;
        };
        EXPECT_EQ(seen(projection == dgPROJECTION_PARALLEL ? 5 : 17, 99.9) > 250, projection == dgPROJECTION_PARALLEL);
        EXPECT_NEAR(seen(32, 0), 128, 2);
        EXPECT_LT(seen(45, -99.9), 5);
    }
}

TEST(dgGLDrawing, draws_lines_of_every_width_by_both_ways)
{
    Scene scene;
    const float own_limit = scene.window.device().line_width_limit();
    for (const float limit : {own_limit, 1.0f})
        for (const int width : {1, 2, 3, 6})
        {
            scene.window.device().line_width_limit(limit);
            scene.root->clear();
            scene.add(new dgLineWidth(width));
            scene.add(segment({5, 20, 0}, {45, 20, 0}));
            scene.add(segment({55, 5, 0}, {55, 40, 0}));
            scene.draw();
            const dgImage picture = scene.picture();
            int rows = 0, columns = 0;
            for (int y = 0; y < picture.height; ++y)
                rows += pixel_at(picture, 25, y) == white;
            for (int x = 48; x < picture.width; ++x)
                columns += pixel_at(picture, x, 20) == white;
            EXPECT_EQ(rows, width) << "limit " << limit;
            EXPECT_EQ(columns, width) << "limit " << limit;
        }
    scene.window.device().line_width_limit(own_limit);
}

TEST(dgGLDrawing, wide_lines_that_pass_the_eye_are_cut_at_the_near_plane)
{
    // Both ways draw the same piece of a line that runs from far behind the view plane to behind the eye.
    int drawn[2];
    Scene scene;
    dgCamera& camera = scene.view.camera();
    camera.projection(dgPROJECTION_PERSPECTIVE);
    camera.projection_reference_point(giPoint3(32, 24, 50));
    camera.front_back_plane(40, -100);
    scene.add(new dgLineWidth(3));
    scene.add(segment({5, 20, -90}, {60, 28, 60}));
    const float own_limit = scene.window.device().line_width_limit();
    for (const int quads : {0, 1})
    {
        scene.window.device().line_width_limit(quads ? 1.0f : own_limit);
        scene.draw();
        drawn[quads] = count_pixels(scene.picture(), white);
    }
    scene.window.device().line_width_limit(own_limit);
    EXPECT_GT(drawn[0], 80);
    EXPECT_NEAR(drawn[0], drawn[1], 0.15 * drawn[0]);
}

TEST(dgGLDrawing, a_section_cuts_surfaces_and_lines_of_every_width_at_its_plane)
{
    Scene scene(100, 48);
    scene.view.camera().section(giPlane({20.5, 0, 0}, {2, 0, 0}));
    scene.add(new dgTransform(giXform3::translation({-1000, 0, 0})));
    add_unlit(scene, gsColour(1, 0, 0), rectangle(1010, 5, 1039, 14));
    scene.add(new dgLineColour(gsColour(0, 1, 0)));
    scene.add(new dgLineWidth(4));
    scene.add(segment({1000, 30.5, 0}, {1050.5, 30.5, 0}));
    const float limit = test_device()->line_width_limit();
    for (const float most : {1.0f, 10.0f})
    {
        test_device()->line_width_limit(most);
        scene.renderer.erase(0);
        scene.draw();
        EXPECT_EQ(count_pixels(scene.picture(), red), 19 * 10) << most;
        EXPECT_EQ(count_pixels(scene.picture(), green), 30 * 4) << most;
        EXPECT_EQ(pixel_at(scene.picture(), 20, 30), black);
        EXPECT_EQ(pixel_at(scene.picture(), 21, 30), green);
    }
    test_device()->line_width_limit(limit);
}

TEST(dgGLDrawing, line_styles_leave_gaps_that_run_on_over_short_segments)
{
    Scene scene;
    scene.add(new dgLineStyle(1));
    std::vector<giPoint3> points;
    for (int i = 0; i <= 24; ++i)
        points.emplace_back(2 * i, 10, 0);
    scene.add(new dgPolyline(points));
    scene.draw();
    const dgImage picture = scene.picture();
    int drawn = 0, changes = 0;
    for (int x = 0; x < 48; ++x)
    {
        drawn += pixel_at(picture, x, 10) == white;
        changes += x && pixel_at(picture, x, 10) != pixel_at(picture, x - 1, 10);
    }
    EXPECT_EQ(drawn, 36);  // 12 of 16
    EXPECT_LE(changes, 6); // three dashes
}

TEST(dgGLDrawing, markers_and_edges)
{
    Scene scene;
    scene.add(new dgMarkerSize(5));
    scene.add(new dgPointSet({{20, 20, 0}}));
    scene.draw();
    EXPECT_EQ(count_pixels(scene.picture(), white), 25);
    EXPECT_EQ(pixel_at(scene.picture(), 18, 22), white);

    scene.root->clear();
    scene.add(new dgInteriorStyle(0));
    add_unlit(scene, gsColour(1, 0, 0), triangles({{5, 5, 0}, {35, 5, 0}, {5, 35, 0}}));
    scene.draw();
    EXPECT_EQ(pixel_at(scene.picture(), 15, 15), black);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 5), red);
    EXPECT_EQ(pixel_at(scene.picture(), 5, 20), red);
}

TEST(dgGLDrawing, exclusive_or_combines_colours_and_twice_restores_every_pixel)
{
    Scene scene;
    scene.view.shading_context().graduated_background = 1;
    add_unlit(scene, gsColour(0.3, 0.5, 0.7), rectangle(10, 10, 40, 30));
    scene.draw();
    const dgImage before = scene.picture();
    scene.renderer.select_driver(1);
    ASSERT_TRUE(scene.renderer.in_xor_mode());
    for (const int width : {1, 4})
    {
        const dgRef<dgLineWidth> line_width(new dgLineWidth(width));
        const dgRef<dgPolyline> line(new dgPolyline({{2, 3, 50}, {50, 40, 50}, {60, 2, 50}, {2, 3, 50}}));
        for (int time = 0; time < 2; ++time)
        {
            scene.view.begin();
            scene.view.execute(*line_width);
            scene.view.execute(*line);
            scene.view.end();
            EXPECT_EQ(same_pictures(scene.picture(), before), time) << width;
        }
    }
    const dgRef<dgTriangleBlock> block(rectangle(20, 20, 20, 20, 50));
    const dgRef<dgSurfaceColour> colour(new dgSurfaceColour(gsColour(1, 0, 15 / 255.0)));
    scene.view.begin();
    scene.view.execute(*colour);
    scene.view.execute(*block);
    scene.view.end();
    const Pixel under = pixel_at(before, 20, 20);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 20), (Pixel{255 - under.red, under.green, under.blue ^ 15}));
    EXPECT_EQ(scene.picture().pixel(20, 20)[3], 255);
}

TEST(dgGLDrawing, stencil_inverts_a_pixel_once_per_item)
{
    Scene scene;
    scene.draw();
    scene.renderer.select_driver(1);
    dgGLDriver& driver = scene.driver(1);
    const dgRef<dgPolyline> there_and_back(new dgPolyline({{5, 10, 0}, {40, 10, 0}, {5, 10, 0}}));
    constexpr unsigned stencil_test = 0x0B90, notequal = 0x0205, keep = 0x1E00, replace = 0x1E01;
    driver.gl_enable(stencil_test);
    driver.gl_stencil_func(notequal, 1, 1);
    driver.gl_stencil_op(keep, keep, replace);
    scene.draw(*there_and_back);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);
    scene.draw(*there_and_back);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);

    // Where the stencil was cleared, and nowhere else, the next item inverts again.
    driver.erase_area(giBox2(0, 0, 15, 47), gsColour(1, 0, 0), dgERASE_FRAMEBUFFER_NO, dgERASE_ZBUFFER_NO);
    scene.draw(*there_and_back);
    EXPECT_EQ(pixel_at(scene.picture(), 10, 10), black);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);
    driver.gl_disable(stencil_test);
    scene.draw(*there_and_back);
    scene.draw(*there_and_back);
    EXPECT_EQ(pixel_at(scene.picture(), 20, 10), white);

    driver.erase_area(giBox2(30, 0, 40, 20), gsColour(1, 0, 0), dgERASE_FRAMEBUFFER_YES, dgERASE_ZBUFFER_NO);
    EXPECT_EQ(count_pixels(scene.picture(), red), 11 * 21);
    driver.erase_area(giBox2(-1e12, 0, 1e12, 20), gsColour(1, 0, 0), dgERASE_FRAMEBUFFER_YES, dgERASE_ZBUFFER_NO);
    EXPECT_EQ(count_pixels(scene.picture(), red), 64 * 21);
}
