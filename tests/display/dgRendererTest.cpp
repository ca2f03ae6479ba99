#include "dgRenderer.h"

#include "dgAppElement.h"
#include "dgCameraIndex.h"
#include "dgClientStructure.h"
#include "dgImage.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgStructureCall.h"
#include "dgTraceWindow.h"
#include "dgTransform.h"
#include "dgView.h"
#include "gsRenderAction.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace
{
using Lines = std::vector<std::string>;

Lines starting_with(const Lines& log, const std::string& start)
{
    Lines found;
    std::copy_if(log.begin(), log.end(), std::back_inserter(found),
                 [&](const std::string& text) { return text.rfind(start, 0) == 0; });
    return found;
}

struct Scene
{
    dgTraceWindow window{100, 50};
    dgRenderer renderer{&window, nullptr};
    dgView view{&renderer};
    dgRef<dgStructure> root{new dgClientStructure};

    Scene() { view.root(root.get()); }
    const Lines& draw()
    {
        window.clear_log();
        view.render_network(nullptr);
        return window.log();
    }
};

// Draws nothing and does to its surroundings what it is made for.
class Meddler : public dgAppElement
{
public:
    explicit Meddler(std::function<void(dgRenderer&)> meddle) : the_meddle(std::move(meddle)) {}
    Meddler* copy() const override { return new Meddler(*this); }
    void draw(dgRenderer* renderer) const override
    {
        const auto meddle = the_meddle; // this element may be gone before the end
        meddle(*renderer);
    }

private:
    std::function<void(dgRenderer&)> the_meddle;
};

class EverySecond : public gsRenderAction
{
public:
    int seen = 0;
    int primitive(dgRenderer&, const dgGraphicalPrimitive&) override { return seen++ % 2 == 0; }
};
}

TEST(dgRenderer, draws_runs_in_order_between_begin_and_end)
{
    Scene scene;
    scene.root->add(new dgPointSet({{0, 0, 0}, {1, 1, 1}}));
    scene.root->add(ts_line(1));
    scene.root->add(ts_line(1));
    scene.root->add(new dgLineWidth(2));
    scene.root->add(ts_line(1));
    const Lines expected{"begin", "draw points 2 of 1", "draw lines 2 of 2", "draw lines 1 of 1", "end"};
    EXPECT_EQ(scene.draw(), expected);
    scene.window.clear_log();
    scene.renderer.begin();
    scene.renderer.execute(*dgRef<dgStructureCall>(new dgStructureCall(scene.root.get())));
    scene.renderer.end();
    EXPECT_EQ(scene.window.log(), expected) << "called by itself";
}

TEST(dgRenderer, sends_its_one_camera_again_when_that_is_selected)
{
    Scene scene;
    scene.window.record_state(1);
    const dgRef<dgStructure> far(new dgClientStructure), near(new dgClientStructure);
    far->add(new dgPolyline({{1e6, 0, 0}, {2e6, 0, 0}}));
    near->add(ts_line(1));
    scene.view.begin();
    scene.view.execute_structure(*near);
    for (const int index : {0, 1})
    {
        scene.window.clear_log();
        scene.view.execute(*dgRef<dgCameraIndex>(new dgCameraIndex(index)));
        EXPECT_EQ(starting_with(scene.window.log(), "camera").size(), index == 0 ? 1u : 0u);
    }
    scene.renderer.select_driver(1);
    scene.view.execute_structure(*near);
    for (const char* told : {"xor camera", "xor state", "xor draw"})
        EXPECT_EQ(starting_with(scene.window.log(), told).size(), 1u) << told;
    scene.renderer.select_driver(0);
    scene.view.end();
    scene.window.clear_log();
    scene.renderer.begin();
    scene.renderer.draw_structure(*far);
    scene.renderer.end();
    EXPECT_EQ(starting_with(scene.window.log(), "camera"), Lines());
    EXPECT_EQ(starting_with(scene.window.log(), "draw").size(), 1u) << "without a view nothing is out of sight";
    dgImage image;
    scene.renderer.read_pixels(giBox2(2, 3, 4, 7), image);
    EXPECT_EQ(std::vector({image.width, image.height, int(image.rgba.size())}), (std::vector{3, 5, 4 * 3 * 5}));
}

TEST(dgRenderer, restores_attributes_and_transforms_after_a_call)
{
    Scene scene;
    scene.window.record_state(1);
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(new dgLineWidth(5));
    part->add(new dgTransform(giXform3::translation({0.5, 0, 0})));
    part->add(ts_line(1));
    scene.root->add(new dgLineWidth(3));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(ts_line(1));
    scene.draw();
    const Lines states = starting_with(scene.window.log(), "state line 1 1 1 ");
    ASSERT_EQ(states.size(), 2u);
    EXPECT_NE(states[0].find("state line 1 1 1 5 "), std::string::npos);
    EXPECT_NE(states[1].find("state line 1 1 1 3 "), std::string::npos);
    const Lines transforms = starting_with(scene.window.log(), "transform");
    ASSERT_EQ(transforms.size(), 2u);
    EXPECT_NE(transforms[0].find(" 0.5 0 0 1"), std::string::npos);
    EXPECT_NE(transforms[1].find(" 0 0 0 1"), std::string::npos);
}

TEST(dgRenderer, draws_what_an_element_before_it_moves_into_view)
{
    Scene scene;
    auto* move = new dgTransform(giXform3::translation({100, 0, 0}));
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(new Meddler([&](dgRenderer&) { move->transform(giXform3()); }));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(move);
    scene.root->add(ts_line(1));
    EXPECT_EQ(starting_with(scene.draw(), "draw"), (Lines{"draw lines 1 of 1"}));
    move->transform(giXform3::translation({100, 0, 0}));
    part->clear();
    EXPECT_EQ(starting_with(scene.draw(), "draw"), Lines());
}

TEST(dgRenderer, takes_up_a_colour_and_a_width_changed_in_place)
{
    Scene scene;
    scene.window.record_state(1);
    auto* colour = new dgLineColour(gsColour(1, 0, 0));
    auto* width = new dgLineWidth(1);
    scene.root->add(colour);
    scene.root->add(width);
    scene.root->add(ts_line(1));
    scene.draw();
    colour->colour(gsColour(0, 0, 1));
    width->value(3);
    EXPECT_EQ(starting_with(scene.draw(), "state line 0 0 1 3 ").size(), 1u);
}

TEST(dgRenderer, ends_on_cycles_and_bears_deep_networks)
{
    Scene cyclic;
    cyclic.root->add(ts_line(1));
    cyclic.root->add(new dgStructureCall(cyclic.root.get()));
    EXPECT_EQ(starting_with(cyclic.draw(), "draw").size(), 1u);
    cyclic.root->clear(); // breaks the cycle of references

    Scene deep;
    dgStructure* level = deep.root.get();
    for (int i = 0; i < 100000; ++i)
    {
        auto* next = new dgClientStructure;
        level->add(new dgStructureCall(next));
        level = next;
    }
    level->add(ts_line(1));
    EXPECT_EQ(starting_with(deep.draw(), "draw").size(), 1u);
}

TEST(dgRenderer, shows_every_primitive_to_the_action_installed_until_it_is_removed)
{
    Scene scene;
    for (int i = 0; i < 5; ++i)
        scene.root->add(ts_line(1));
    {
        EverySecond action;
        scene.renderer.render_action(&action);
        EXPECT_EQ(starting_with(scene.draw(), "draw").size(), 3u);
        EXPECT_EQ(action.seen, 5);
        scene.window.clear_log();
        scene.view.render_network_normal(*scene.root);
        EXPECT_EQ(starting_with(scene.window.log(), "draw"), (Lines{"draw lines 5 of 5"}));
        EXPECT_EQ(action.seen, 5);
    }
    EXPECT_EQ(scene.renderer.render_action(), nullptr); // destroyed, so removed
    EXPECT_EQ(starting_with(scene.draw(), "draw"), (Lines{"draw lines 5 of 5"}));
}

TEST(dgRenderer, draws_to_the_end_what_an_element_edits_clears_or_drops_under_it)
{
    struct Case
    {
        const char* name;
        void (*meddle)(dgView& view, dgStructure& part);
    };
    const Case cases[] = {
        {"clears the part", [](dgView&, dgStructure& part) { part.clear(); }},
        {"deletes itself", [](dgView&, dgStructure& part) { part.delete_range(1, 1); }},
        {"deletes what follows", [](dgView&, dgStructure& part) { part.delete_range(2, 2); }},
        {"deletes the call of the part", [](dgView& view, dgStructure&) { view.root()->delete_range(0, 0); }},
        {"drops the root", [](dgView& view, dgStructure&) { view.root(nullptr); }},
        {"clears and asks for the box",
         [](dgView& view, dgStructure& part)
         {
             part.clear();
             view.root()->bounding_box();
             view.root()->network_stamp();
         }},
        {"draws the whole again", [](dgView& view, dgStructure&) { view.execute_structure(*view.root()); }},
    };
    for (const Case& c : cases)
        for (const int through_action : {0, 1})
        {
            Scene scene;
            auto* part = new dgClientStructure;
            part->add(ts_line(1));
            part->add(new Meddler([&, part](dgRenderer&) { c.meddle(scene.view, *part); }));
            part->add(ts_line(1));
            scene.root->add(new dgStructureCall(part));
            scene.root.reset(); // the view alone holds it
            gsRenderAction watching;
            scene.renderer.render_action(through_action ? &watching : nullptr);
            EXPECT_EQ(starting_with(scene.draw(), "draw").size(), 2u) << c.name;
        }
}

TEST(dgRenderer, leaves_structures_that_nobody_counts_to_their_owner)
{
    Scene scene;
    dgClientStructure on_the_stack;
    on_the_stack.add(ts_line(1));
    scene.view.render_network(&on_the_stack);
    scene.view.render_network_normal(on_the_stack);
    EXPECT_EQ(on_the_stack.nelements(), 1);
    EXPECT_EQ(on_the_stack.reference_count(), 0);
}

TEST(dgRenderer, keeps_the_attributes_that_it_uses)
{
    for (const int counted : {0, 1})
    {
        Scene scene;
        scene.window.record_state(1);
        scene.root->add(ts_line(1));
        auto* red = new dgLineColour(gsColour(1, 0, 0));
        const dgRef<dgLineColour> released(counted ? red : nullptr);
        scene.renderer.execute(*red); // outside of any level
        if (!counted)
            delete red;
        EXPECT_EQ(starting_with(scene.draw(), "state line 1 0 0 ").size(), 1u) << counted;
    }
}

TEST(dgRenderer, draws_an_indexed_colour_as_its_table_says)
{
    Scene scene;
    scene.window.record_state(1);
    scene.root->add(new dgLineColour(gsColour::from_index(-1)));
    scene.root->add(ts_line(1));
    EXPECT_EQ(starting_with(scene.draw(), "state line 1 1 1 ").size(), 1u);
    scene.renderer.colour_table(dgColourTable({gsColour(1, 0, 0), gsColour(0, 0, 1)}));
    EXPECT_EQ(starting_with(scene.draw(), "state line 0 0 1 ").size(), 1u);
}
