// Picking: what a view shows in an aperture, and not more.
#include "dgNetworkWalk.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "tsRandomNetwork.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
// 100 x 100 pixels show x and y from -50 to 50; the eye of a perspective is at z = 100.
struct Scene
{
    dgTraceWindow window{100, 100};
    dgRenderer renderer{&window, nullptr};
    dgView view{&renderer};
    dgRef<dgStructure> root{new dgClientStructure};

    Scene()
    {
        view.root(root.get());
        view.camera().view_window(giBox2(-50, -50, 50, 50));
        view.camera().projection_reference_point(giPoint3(0, 0, 100));
    }
    int picked(const giBox2& aperture, dgPickMode mode = dgPICK_EXACT) const
    {
        dgPickResult* result = view.pick_all(dgPickAperture(aperture), mode);
        const int count = result->count();
        result->release();
        return count;
    }
};

// A segment between two points or a triangle between three.
dgGraphicalElement* shape(const std::vector<giPoint3>& points)
{
    if (points.size() == 2)
        return new dgPolyline(points);
    auto* block = new giTriBlock;
    for (const giPoint3& corner : points)
        block->nodes().append(corner);
    block->triangles().emplace_back(0, 1, 2);
    return new dgTriangleBlock(block, 1);
}
}

TEST(dgPicker, finds_what_is_shown_in_the_aperture)
{
    const giBox2 middle(48, 48, 51, 51), right(90, 48, 99, 51), outside(110, 48, 120, 51);
    const struct
    {
        const char* name;
        std::vector<giPoint3> points;
        dgProjection projection;
        double front, back; // equal: not the user's
        giBox2 aperture;
        int picked;
    } cases[] = {
        {"a line through it", {{-40, -40, 0}, {40, 40, 0}}, dgPROJECTION_PARALLEL, 0, 0, middle, 1},
        {"a line past it", {{-40, -20, 0}, {20, 40, 0}}, dgPROJECTION_PARALLEL, 0, 0, middle, 0},
        {"a triangle around it", {{-40, -40, 0}, {40, -40, 0}, {0, 40, 0}}, dgPROJECTION_PARALLEL, 0, 0, middle, 1},
        {"a box around it is not enough",
         {{-40, -40, 0}, {40, -40, 0}, {40, -30, 0}},
         dgPROJECTION_PARALLEL,
         0,
         0,
         middle,
         0},
        {"outside the viewport", {{-40, 0, 0}, {80, 0, 0}}, dgPROJECTION_PARALLEL, 0, 0, outside, 0},
        {"a line between the planes", {{0, 0, 0}, {40, 0, 40}}, dgPROJECTION_PARALLEL, 50, -1, right, 0},
        {"the end between the planes", {{-40, 0, -40}, {45, 0, 45}}, dgPROJECTION_PARALLEL, 50, -1, right, 1},
        {"the end before the front plane", {{-40, 0, -40}, {45, 0, 45}}, dgPROJECTION_PARALLEL, 10, -50, right, 0},
        {"the end behind the back plane", {{-40, 0, 40}, {45, 0, -45}}, dgPROJECTION_PARALLEL, 50, -10, right, 0},
        {"a surface before the front plane",
         {{-40, -40, 20}, {40, -40, 20}, {0, 40, 20}},
         dgPROJECTION_PARALLEL,
         10,
         -10,
         middle,
         0},
        {"a surface that the front plane cuts at the aperture",
         {{-40, -40, -20}, {40, -40, -20}, {0, 80, 40}},
         dgPROJECTION_PARALLEL,
         0,
         -50,
         middle,
         1},
        {"a line that runs behind the eye", {{10, 0, 0}, {10, 0, 300}}, dgPROJECTION_PERSPECTIVE, 0, 0, right, 1},
        {"what lies behind the eye alone", {{-60, 0, 150}, {60, 0, 150}}, dgPROJECTION_PERSPECTIVE, 0, 0, right, 0},
    };
    for (const auto& c : cases)
        for (const dgPickMode mode : {dgPICK_EXACT, dgPICK_BOX})
        {
            Scene scene;
            scene.root->add(shape(c.points));
            scene.view.camera().projection(c.projection);
            if (c.front > c.back)
            {
                scene.view.user_clip_planes(1);
                scene.view.camera().front_back_plane(c.front, c.back);
            }
            if (mode == dgPICK_EXACT || c.picked) // what is found exactly is found by its box
            {
                EXPECT_EQ(scene.picked(c.aperture, mode), c.picked) << c.name << " " << mode;
            }
        }
}

TEST(dgPicker, finds_each_place_and_heeds_the_settings)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(shape({{-40, 0, 0}, {40, 0, 0}}));
    for (const double x : {0.0, 1.0, 200.0}) // the last one is out of sight
    {
        scene.root->add(new dgTransform(giXform3::translation({x, 0, 0})));
        scene.root->add(new dgStructureCall(part.get()));
    }
    scene.root->add(new dgStructureCall(scene.root.get()));
    scene.root->add(shape({{-240, -40, 0}, {-160, -40, 0}, {-200, 40, 0}})); // back in the middle by the transforms
    const giBox2 middle(48, 48, 51, 51);
    EXPECT_EQ(scene.picked(middle), 3);
    scene.renderer.pick_settings({1, 1, 1});
    EXPECT_EQ(scene.picked(middle), 1);
    scene.renderer.pick_settings({0, 0, 1});
    EXPECT_EQ(scene.picked(middle), 1);
    scene.renderer.pick_settings({0, 1, 0});
    EXPECT_EQ(scene.picked(middle), 2);
    scene.root->clear(); // breaks the circle of references
}

// Picks in random networks, beside picks of each triangle, line and point alone.
TEST(dgPicker, finds_in_any_network_what_it_finds_in_its_pieces)
{
    Scene scene;
    const auto met_alone = [&](const dgGraphicalElement& element, const giXform3& to_world, const giBox2& aperture)
    {
        const auto met = [&](dgGraphicalElement* piece)
        {
            const dgRef<dgStructure> alone(new dgClientStructure);
            alone->add(new dgWorldTransform(to_world));
            alone->add(piece);
            scene.view.root(alone.get());
            return scene.picked(aperture) > 0;
        };
        const auto* block = dgTriangleBlock::ut_dynamic_cast(&element);
        if (!block)
            return met(const_cast<dgGraphicalElement*>(&element));
        const auto& nodes = block->block().nodes();
        const auto& triangles = block->block().triangles();
        return std::any_of(triangles.begin(), triangles.end(),
                           [&](const giTriangle& t) {
                               return met(shape({nodes[t[0]], nodes[t[1]], nodes[t[2]]}));
                           });
    };
    int found = 0;
    for (unsigned number = 0; number < 60; ++number)
    {
        tsRandomNetwork random(number);
        for (int i = 0; i < 4; ++i)
        {
            dgCamera& camera = scene.view.camera();
            camera.projection(random.whole(0, 1) ? dgPROJECTION_PERSPECTIVE : dgPROJECTION_PARALLEL);
            camera.orientation(random.point(), random.point().vector(), {0.1, 1, 0.2});
            camera.projection_reference_point({0, 0, random.real(0.5, 20)});
            camera.view_window(giBox2(-4, -4, 4, 4));
            camera.front_back_plane(random.real(0, 9), random.real(-9, 0));
            const int x = random.whole(0, 80), y = random.whole(0, 80);
            const giBox2 aperture(x, y, x + random.whole(0, 20), y + random.whole(0, 20));
            scene.view.user_clip_planes(1);
            std::vector<const dgBase*> expected;
            dg_walk_placed(*random.root(),
                           [&](const dgGraphicalElement& element, const giXform3& to_world)
                           {
                               if (element.kind() == dgELEMENT_PRIMITIVE && met_alone(element, to_world, aperture))
                                   expected.push_back(&element);
                               return true;
                           });
            scene.view.root(random.root());
            dgPickResult* result = scene.view.pick_all(dgPickAperture(aperture));
            EXPECT_EQ(std::vector<const dgBase*>(result->elements().begin(), result->elements().end()), expected)
                << number << " " << i;
            found += result->count();
            result->release();
            for (int edits = random.whole(0, 3); edits > 0; --edits)
                random.edit();
        }
    }
    EXPECT_GT(found, 100);
}
