#include "dgCamera.h"
#include "giAngle.h"
#include "giBox3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

dgCamera test_camera(dgProjection projection)
{
    dgCamera camera;
    camera.orientation(giXform3::rotation(giAngle(0.7), giVector3(1, 2, 3), giPoint3(4, 5, 6)));
    camera.view_port_dc(giBox2(100, 50, 299, 149)); // 200 x 100 pixels
    camera.view_window(giBox2(-3, -1, 5, 3));       // 8 x 4 units: 25 pixels a unit
    camera.projection(projection);
    camera.projection_reference_point(giPoint3(0.5, 0.25, 10));
    camera.front_back_plane(2, -3);
    return camera;
}

giPoint3 through(const dgCamera& camera, const giPoint3& point, dgCameraSpace from, dgCameraSpace to)
{
    giPoint3 result;
    camera.transform(point, result, from, to);
    return result;
}
}

TEST(dgCamera, window_and_viewport_middles_meet_and_pixels_are_square)
{
    EXPECT_EQ(through(dgCamera(), giPoint3(), dgSPACE_VIEW, dgSPACE_DEVICE), giPoint3(255.5, 255.5, 0));
    const dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    EXPECT_DOUBLE_EQ(camera.pixels_per_unit(), 25);
    EXPECT_EQ(through(camera, giPoint3(1, 1, 7), dgSPACE_VIEW, dgSPACE_DEVICE), giPoint3(199.5, 99.5, 7));
    EXPECT_EQ(through(camera, giPoint3(2, 0, 0), dgSPACE_VIEW, dgSPACE_DEVICE), giPoint3(224.5, 74.5, 0));
    EXPECT_TRUE(through(camera, camera.view_centre(), dgSPACE_WORLD, dgSPACE_DEVICE)
                    .coincident(giPoint3(199.5, 99.5, 0), 1e-9));
}

TEST(dgCamera, points_survive_every_round_trip)
{
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
    {
        const dgCamera camera = test_camera(projection);
        const dgCameraSpace spaces[] = {dgSPACE_WORLD, dgSPACE_VIEW, dgSPACE_DEVICE};
        for (const dgCameraSpace from : spaces)
        {
            for (const dgCameraSpace to : spaces)
            {
                const giPoint3 point(1.5, -0.5, 0.25);
                const giPoint3 there = through(camera, point, from, to);
                EXPECT_TRUE(through(camera, there, to, from).coincident(point, 1e-10)) << projection << from << to;
            }
        }
    }
}

TEST(dgCamera, perspective_shrinks_what_is_far_towards_the_reference_point)
{
    const dgCamera camera = test_camera(dgPROJECTION_PERSPECTIVE);
    // Twice as far from the eye as the view plane: half the offset from the eye's axis.
    const giPoint3 far = through(camera, giPoint3(2.5, 0.25, -10), dgSPACE_VIEW, dgSPACE_DEVICE);
    const giPoint3 near = through(camera, giPoint3(1.5, 0.25, 0), dgSPACE_VIEW, dgSPACE_DEVICE);
    EXPECT_NEAR(far.x(), near.x(), 1e-9);
    EXPECT_NEAR(far.y(), near.y(), 1e-9);
}

TEST(dgCamera, projection_for_drivers_agrees_with_device_space)
{
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
    {
        const dgCamera camera = test_camera(projection);
        for (const giPoint3& point : {giPoint3(0, 0, 0), giPoint3(2, -0.5, 2), giPoint3(-1, 2.5, -3)})
        {
            const giPoint3 cube = point * camera.projection_transform();
            const giPoint3 device = through(camera, point, dgSPACE_VIEW, dgSPACE_DEVICE);
            // Pixel centres are whole numbers, so that the viewport's edge lies half a pixel outside.
            EXPECT_NEAR(99.5 + (cube.x() + 1) * 100, device.x(), 1e-9) << projection;
            EXPECT_NEAR(49.5 + (cube.y() + 1) * 50, device.y(), 1e-9) << projection;
            if (point.z() == 2)
            {
                EXPECT_NEAR(cube.z(), -1, 1e-12);
            }
            if (point.z() == -3)
            {
                EXPECT_NEAR(cube.z(), 1, 1e-12);
            }
        }
    }
}

TEST(dgCamera, orientation_taken_apart_and_set_again_is_the_same)
{
    dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    const giXform3 before = camera.orientation();
    giPoint3 eye;
    giVector3 direction, up;
    dgCamera::orientation(before, &eye, &direction, &up);
    camera.orientation(eye, direction, up * 3);
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(camera.orientation().data()[i], before.data()[i], 1e-12) << i;

    dgCamera::orientation(giXform3(), nullptr, &direction, &up);
    EXPECT_EQ(direction, giVector3(0, 0, -1));
    EXPECT_EQ(up, giVector3(0, 1, 0));
}

TEST(dgCamera, zoom_and_pan_have_inverses_and_move_by_shares_of_the_viewport)
{
    dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    const giBox2 window = camera.view_window();
    camera.zoom(0.25);
    EXPECT_DOUBLE_EQ(camera.scale(), 1.0); // the window's height is 1 now
    camera.zoom(4);
    EXPECT_EQ(camera.view_window(), window);

    const giPoint3 point(0.3, 0.4, 0);
    const giPoint3 before = through(camera, point, dgSPACE_VIEW, dgSPACE_DEVICE);
    camera.pan_view(giVector2(0.5, -0.25));
    const giPoint3 after = through(camera, point, dgSPACE_VIEW, dgSPACE_DEVICE);
    EXPECT_NEAR(after.x() - before.x(), 100, 1e-9);
    EXPECT_NEAR(after.y() - before.y(), -25, 1e-9);
    camera.pan_view(giVector2(-0.5, 0.25));
    EXPECT_EQ(camera.view_window(), window);
}

TEST(dgCamera, a_pan_is_measured_in_pixels_whatever_the_window_s_proportions)
{
    dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    camera.view_window(giBox2(-1, -4, 1, 4)); // taller than the viewport: 12.5 pixels a unit
    const giPoint3 before = through(camera, giPoint3(), dgSPACE_VIEW, dgSPACE_DEVICE);
    camera.pan_view(giVector2(10 / 200.0, 0));
    EXPECT_NEAR(through(camera, giPoint3(), dgSPACE_VIEW, dgSPACE_DEVICE).x() - before.x(), 10, 1e-9);
}

TEST(dgCamera, fits_a_box_into_the_window_with_a_margin)
{
    const giBox3 boxes[] = {{giPoint3(10, 20, 30), giPoint3(14, 22, 31)},
                            {giPoint3(-100, -100, -100), giPoint3(100, 100, 100)},
                            {giPoint3(0, 0, 0), giPoint3(0.01, 0.02, 0.01)}};
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
        for (const dgBoundingViewType type : {dgBOUNDING_VIEW_BOX, dgBOUNDING_VIEW_SPHERE})
            for (const giBox3& box : boxes)
                for (const double off : {0.0, 2.0})
                {
                    dgCamera camera = test_camera(projection);
                    camera.projection_reference_point(giPoint3(off, -off, 5));
                    camera.view_bounding_box(box, type);
                    EXPECT_TRUE(camera.view_centre().coincident(box.middle(), 1e-9));
                    double front, back;
                    camera.shown_depths(front, back);
                    double reach = 0; // 1 at the edge of the window
                    for (int i = 0; i < 8; ++i)
                    {
                        const giPoint3 corner = through(camera, box.corner(i), dgSPACE_WORLD, dgSPACE_DEVICE);
                        reach = std::max({reach, std::abs(corner.x() - 199.5) / 100, std::abs(corner.y() - 99.5) / 50});
                        EXPECT_LT(corner.z(), front);
                        EXPECT_GT(corner.z(), back);
                    }
                    // 2.5 % of the picture on each side, and more about a sphere.
                    EXPECT_LE(reach, 1 / 1.05 + 1e-9);
                    if (type == dgBOUNDING_VIEW_BOX)
                    {
                        EXPECT_NEAR(reach, 1 / 1.05, 1e-9);
                    }
                }
    dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    const giBox2 window = camera.view_window();
    camera.view_bounding_box(giBox3(), dgBOUNDING_VIEW_BOX);
    EXPECT_EQ(camera.view_window(), window);
}

TEST(dgCamera, a_sphere_fit_shows_the_box_after_any_turn_about_its_middle)
{
    const giBox3 box(giPoint3(0, 0, 0), giPoint3(4, 2, 1));
    for (const dgProjection projection : {dgPROJECTION_PARALLEL, dgPROJECTION_PERSPECTIVE})
    {
        dgCamera camera = test_camera(projection);
        camera.view_bounding_box(box, dgBOUNDING_VIEW_SPHERE);
        for (int turn = 0; turn < 12; ++turn)
        {
            camera.rotate_view(static_cast<gi_Axis>(turn % 3), 0.5);
            for (int i = 0; i < 8; ++i)
            {
                const giPoint3 corner = through(camera, box.corner(i), dgSPACE_WORLD, dgSPACE_DEVICE);
                EXPECT_TRUE(camera.view_port_dc().contains(giPoint2(corner.x(), corner.y())));
            }
        }
    }
}

TEST(dgCamera, turns_about_its_own_axes_through_the_view_centre)
{
    dgCamera camera = test_camera(dgPROJECTION_PARALLEL);
    const giPoint3 centre = camera.view_centre();
    giVector3 before, after;
    dgCamera::orientation(camera.orientation(), nullptr, nullptr, &before);
    camera.rotate_view(gi_Z_AXIS, pi / 2);
    EXPECT_TRUE(camera.view_centre().coincident(centre, 1e-9));
    // The picture turns counter-clockwise, so that what was up now points left: up in the world was to the right.
    EXPECT_NEAR((before * camera.orientation()).x(), -1, 1e-12);
    dgCamera::orientation(camera.orientation(), nullptr, nullptr, &after);
    EXPECT_NEAR(before.dot(after), 0, 1e-12);
}
