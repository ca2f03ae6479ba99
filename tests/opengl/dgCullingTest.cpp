// What is left out because it is out of view leaves no pixel.
#include "gsStructureSlicer.h"
#include "renderScene.h"
#include "tsRandomNetwork.h"

#include <gtest/gtest.h>

namespace
{
// A random camera at a random network, often close or beside it, with planes inside it as users set them.
void aim(Scene& scene, tsRandomNetwork& random)
{
    dgCamera& camera = scene.view.camera();
    const int perspective = random.whole(0, 1);
    camera.projection(perspective ? dgPROJECTION_PERSPECTIVE : dgPROJECTION_PARALLEL);
    const giPoint3 eye = random.point() + random.point().vector() * 7;
    camera.orientation(eye, random.point() + random.point().vector() * 4 - eye, {0.1, 1, 0.2});
    camera.projection_reference_point({random.real(-1, 1), random.real(-1, 1), random.real(0.1, 20)});
    camera.view_port_dc(giBox2(random.whole(0, 40), random.whole(0, 30), random.whole(60, 159), random.whole(40, 119)));
    const double size = std::exp(random.real(-3, 3)), x = random.real(-1, 1), y = random.real(-1, 1);
    camera.view_window(giBox2(x - size, y - size, x + size, y + size));
    scene.view.user_clip_planes(random.whole(0, 2) == 0);
    const double front = random.real(-8, 4);
    camera.front_back_plane(front, front - random.real(0.1, 12));
    camera.section({});
    if (random.whole(0, 2) == 0)
        camera.section(giPlane(random.point(), {random.real(-1, 1), random.real(-1, 1), 0.3}));
    scene.renderer.depth_cueing(random.whole(0, 1));
}
}

TEST(dgCulling, leaves_every_byte_of_random_pictures_as_it_is)
{
    Scene scene(160, 120);
    const float line_width_limit = test_device()->line_width_limit();
    dgImage pictures[2];
    int drawn = 0;
    for (unsigned number = 0; number < 80; ++number)
    {
        tsRandomNetwork network(number);
        scene.view.root(network.root());
        for (int i = 0; i < 6; ++i)
        {
            aim(scene, network);
            test_device()->line_width_limit(network.whole(0, 1) ? 1 : line_width_limit); // wider lines are quads
            for (const int culling : {0, 1})
            {
                scene.renderer.culling(culling);
                scene.renderer.erase(0);
                scene.draw();
                pictures[culling] = scene.picture();
            }
            ASSERT_TRUE(same_pictures(pictures[0], pictures[1])) << number << " " << i;
            if (i % 3 == 1)
            {
                gsRenderAction one_by_one;
                scene.renderer.render_action(&one_by_one);
                scene.renderer.erase(0);
                scene.draw();
                ASSERT_TRUE(same_pictures(pictures[0], scene.picture())) << number << " " << i << " one by one";
            }
            if (i % 3 == 0)
            {
                gsStructureSlicer slicer(network.whole(1, 300));
                scene.renderer.erase(0);
                scene.view.erase(dgERASE_ZBUFFER_YES);
                while (slicer.another_slice_needed())
                {
                    slicer.next_slice();
                    scene.renderer.render_action(&slicer);
                    scene.view.render_network(nullptr);
                }
                ASSERT_TRUE(same_pictures(pictures[0], scene.picture())) << number << " " << i << " in slices";
            }
            drawn += count_pixels(pictures[0], {0, 0, 0}) < 160 * 120;
            for (int edits = network.whole(0, 2); edits > 0; --edits)
                network.edit();
        }
    }
    test_device()->line_width_limit(line_width_limit);
    EXPECT_GT(drawn, 180); // not a test of black pictures
}

TEST(dgCulling, follows_a_large_block_that_moves)
{
    Scene scene;
    std::vector<giPoint3> points;
    for (int i = 0; i < 2000; ++i)
        for (const giPoint3& corner : {giPoint3(0, 0, 0), giPoint3(2, 20, 0), giPoint3(0, 40, 0)})
            points.push_back(corner + giVector3(0.4 * i, 0, 0));
    dgTriangleBlock* block = triangles(points);
    scene.add(block);
    scene.draw();
    block->block().nodes().transform(giXform3::translation({-400, 0, 0}));
    block->block_changed();
    scene.draw();
    const dgImage culled = scene.picture();
    scene.renderer.culling(0);
    scene.draw();
    EXPECT_TRUE(same_pictures(culled, scene.picture()));
}
