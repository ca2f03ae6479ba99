// Picking: what a view shows in an aperture, and not more.
#include "dgNetworkWalk.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgText.h"
#include "dgTextHeight.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "tsRandomNetwork.h"
#include "tsTable.h"

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
    for (const auto& row : ts_table(TS_TABLES "picks.table", "picks"))
        for (const dgPickMode mode : {dgPICK_EXACT, dgPICK_BOX})
        {
            const std::vector<double> c = ts_numbers(row[1]), planes = ts_numbers(row[3]), box = ts_numbers(row[4]);
            std::vector<giPoint3> points;
            for (std::size_t i = 0; i < c.size(); i += 3)
                points.emplace_back(c[i], c[i + 1], c[i + 2]);
            Scene scene;
            scene.root->add(shape(points));
            scene.view.camera().projection(row[2] == "parallel" ? dgPROJECTION_PARALLEL : dgPROJECTION_PERSPECTIVE);
            scene.view.user_clip_planes(planes.size() == 2);
            if (planes.size() == 6)
                scene.view.camera().section(
                    giPlane({planes[0], planes[1], planes[2]}, {planes[3], planes[4], planes[5]}));
            else if (!planes.empty())
                scene.view.camera().front_back_plane(planes[0], planes[1]);
            EXPECT_EQ(scene.picked(giBox2(box[0], box[1], box[2], box[3]), mode),
                      std::stoi(row[mode == dgPICK_EXACT ? 5 : 6]))
                << row[0] << " " << mode;
        }
}

TEST(dgPicker, finds_each_place_and_heeds_the_settings)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    dgGraphicalElement* line = shape({{-40, 0, 0}, {40, 0, 0}});
    part->add(line);
    for (const double x : {0.0, 1.0, 200.0}) // the last one is out of sight
    {
        scene.root->add(new dgTransform(giXform3::translation({x, 0, 0})));
        scene.root->add(new dgStructureCall(part.get()));
    }
    scene.root->add(new dgStructureCall(scene.root.get()));
    scene.root->add(shape({{-240, -40, 0}, {-160, -40, 0}, {-200, 40, 0}})); // back in the middle by the transforms
    const giBox2 middle(48, 48, 51, 51);
    EXPECT_EQ(scene.picked(middle), 3);
    dgPickResult* all = scene.view.pick_all(dgPickAperture(middle), dgPICK_EXACT);
    EXPECT_EQ(all->elements()[1], line);
    all->release();
    EXPECT_EQ(line->reference_count(), 1) << "results that are released let go of what they hold";
    scene.renderer.pick_settings({1, 1, 1});
    EXPECT_EQ(scene.picked(middle), 1);
    scene.renderer.pick_settings({0, 0, 1});
    EXPECT_EQ(scene.picked(middle), 1);
    scene.renderer.pick_settings({0, 1, 0});
    EXPECT_EQ(scene.picked(middle), 2);
    dgView nowhere;
    nowhere.root(scene.root.get());
    scene.root->clear(); // breaks the circle of references
    scene.view.root(nullptr);
    for (const dgView* view : {&nowhere, &scene.view})
        EXPECT_TRUE(view->pick_hits(dgPickAperture(middle), 0).empty() && view->shown_box().empty());
    EXPECT_EQ(scene.picked(middle), 0);
}

// The empty frame that stands for a character without a font is 0.08 to 0.52 heights wide, 0.7 high and 0.05 thick.
TEST(dgPicker, finds_texts_by_their_letters_under_the_attributes_in_force)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(new dgText(giPoint3(), "x"));
    part->add(new dgTextHeight(1));
    scene.root->add(new dgTextHeight(60));
    scene.root->add(new dgTransform(giXform3::translation({-30, -30, 0})));
    scene.root->add(new dgStructureCall(part.get()));
    const struct
    {
        const char* where;
        giBox2 aperture;
        int picked, picked_by_box;
    } cases[] = {{"wholly inside a stroke", {26, 40, 26, 40}, 1, 1},
                 {"in the hole", {30, 40, 45, 45}, 0, 1},
                 {"across a stroke", {20, 40, 45, 45}, 1, 1},
                 {"below the room of the text", {26, 1, 26, 2}, 0, 0},
                 {"above it", {26, 70, 26, 70}, 0, 0}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(scene.picked(c.aperture), c.picked) << c.where;
        EXPECT_EQ(scene.picked(c.aperture, dgPICK_BOX), c.picked_by_box) << c.where;
    }
    scene.view.user_clip_planes(1);
    scene.view.camera().front_back_plane(9, 0);
    EXPECT_EQ(scene.picked(cases[0].aperture), 1) << "in the back plane";
}

// The points behind a block's last node, and before its first one, are nobody's.
TEST(dgPicker, takes_a_node_that_does_not_exist_for_the_first_one)
{
    struct Middle : dgTriangleBlock
    {
        using dgTriangleBlock::dgTriangleBlock;
        dgGeometry geometry() const override
        {
            dgGeometry middle = dgTriangleBlock::geometry();
            ++middle.points;
            middle.npoints -= 2;
            return middle;
        }
    };
    for (const int node : {-1, 2})
    {
        auto* block = new giTriBlock;
        for (const giPoint3& point : {giPoint3(0, 40, 0), {-40, -40, 0}, {40, -40, 0}, {0, 40, 0}})
            block->nodes().append(point);
        block->triangles().emplace_back(0, 1, node);
        Scene scene;
        scene.root->add(new Middle(block, 1));
        EXPECT_EQ(scene.picked(giBox2(48, 48, 51, 51)), 0) << node;
    }
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
    for (unsigned number = 0; number < 80; ++number)
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
            dgPickResult* by_box = scene.view.pick_all(dgPickAperture(aperture), dgPICK_BOX);
            auto next = expected.begin();
            for (const dgBase* hit : by_box->elements())
                next += next != expected.end() && *next == hit;
            EXPECT_EQ(next, expected.end()) << "what is found exactly is found by its box: " << number << " " << i;
            by_box->release();
            for (int edits = random.whole(0, 3); edits > 0; --edits)
                random.edit();
        }
    }
    EXPECT_GT(found, 100);
}
