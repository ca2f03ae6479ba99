// Render actions and refreshers on OpenGL: what is drawn in parts, in any order of parts, is the same to the last bit.
#include "dgAppElement.h"
#include "dgBackSurfaceColour.h"
#include "dgGLGeometryStore.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextColour.h"
#include "dgTextHeight.h"
#include "dgTransform.h"
#include "grTimeoutRendererCache.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "grViewRendererFast.h"
#include "gsFullQuality.h"
#include "gsStructureFlattener.h"
#include "gsStructureSkipper.h"
#include "gsStructureSlicer.h"
#include "renderScene.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace
{
// A sheet with waves of n by n squares over the pixels from (0, 0) to (size, size).
dgTriangleBlock* sheet(int n, double size, double depth)
{
    const auto place = [=](int i, int j)
    {
        const double x = size * i / n, y = size * j / n;
        return giPoint3(x, y, depth + 5 * std::sin(x / 7) * std::cos(y / 5));
    };
    return new dgTriangleBlock(ts_sheet(n, 0, n, place,
                                        [=](int i, int j)
                                        { return giVector3(std::sin(size * i / n), std::cos(size * j / n), 1); }),
                               1);
}

// A network with everything that a flat copy has to get right: calls under transforms and attributes that end with
// them, back colours, large and small primitives, texts, and lines and points that lie on each other at one depth.
struct Network : Scene
{
    Network() : Scene(160, 120)
    {
        const dgRef<dgClientStructure> part(new dgClientStructure);
        part->add(new dgSurfaceColour(gsColour(0.9, 0.3, 0.2)));
        part->add(new dgBackSurfaceColour(gsColour(0.1, 0.8, 0.2)));
        part->add(sheet(8, 30, 20));
        part->add(new dgLineWidth(3));
        part->add(new dgPolyline({{0, 0, 30}, {30, 30, 30}}));
        part->add(new dgTextColour(gsColour(1, 0, 0)));
        part->add(new dgText(giPoint3(2, 2, 40), "xy"));
        add(new dgTextHeight(9));
        add(new dgText(giPoint3(100, 20, 70), "z"));
        add(new dgSurfaceColour(gsColour(0.4, 0.5, 0.9)));
        add(sheet(60, 150, 0));
        for (int i = 0; i < 20; ++i)
        {
            const dgRef<dgClientStructure> placed(new dgClientStructure);
            placed->add(new dgTransform(giXform3::rotation(giAngle(0.3 * i), giVector3(1, 0.2, 1))));
            placed->add(new dgTransform(giXform3::translation(giVector3(7.3 * i, 5.1 * i, i))));
            placed->add(new dgStructureCall(part.get()));
            add(new dgStructureCall(placed.get()));
        }
        add(sheet(20, 60, 10));
        add(new dgLineColour(gsColour(1, 1, 0)));
        for (int i = 0; i < 300; ++i)
        {
            if (i == 150)
                add(new dgLineColour(gsColour(0, 1, 1)));
            add(new dgPolyline({{80, 60, 50}, {80 + 50 * std::cos(0.1 * i), 60 + 50 * std::sin(0.1 * i), 50}}));
        }
        add(new dgPointSet({{80, 60, 50}, {81, 60, 50}}));
        view.camera().rotate_view(gi_X_AXIS, 0.2);
        renderer.simplified_levels(0); // they come when they are made
    }
    dgImage full()
    {
        draw();
        return picture();
    }
    dgImage drawn(gsRenderAction* action, dgStructure* structure, int erase = 1)
    {
        if (erase)
            view.erase(dgERASE_ZBUFFER_YES);
        renderer.render_action(action);
        view.render_network(structure);
        renderer.render_action(nullptr);
        return picture();
    }
    dgImage front()
    {
        renderer.select_buffer(dgFRONT_BUFFER);
        return picture();
    }
};

// A rate that a few thousand triangles cannot hold.
class HighRate
{
public:
    HighRate() { grViewRendererFast::minimum_framerate(1e5); }
    ~HighRate() { grViewRendererFast::minimum_framerate(1); }
};
}

TEST(gsStructureFlattener, the_flat_copy_shows_the_same_pixels)
{
    Network network;
    const dgImage full = network.full();
    const dgRef<dgClientStructure> flat(new dgClientStructure);
    gsStructureFlattener flattener(network.root.get(), flat.get(), -1);
    EXPECT_TRUE(same_pictures(network.drawn(&flattener, nullptr), full));
    EXPECT_TRUE(same_pictures(network.drawn(nullptr, flat.get()), full));
    EXPECT_GT(count_pixels(full, {0, 0, 0}), 0);
    EXPECT_LT(count_pixels(full, {0, 0, 0}), full.width * full.height / 2);
}

TEST(gsStructureSlicer, slices_over_a_thinned_picture_complete_it_to_the_last_bit)
{
    Network network;
    const dgImage full = network.full();
    for (const double ratio : {0.0, 0.1, 0.5})
        for (const int per_slice : {100, 777, 100000})
        {
            gsStructureSkipper skipper(0, ratio);
            const dgImage thinned = network.drawn(&skipper, nullptr);
            EXPECT_GT(differing_pixels(thinned, full), 100);
            gsStructureSlicer slicer(per_slice);
            while (slicer.another_slice_needed())
            {
                slicer.next_slice();
                network.drawn(&slicer, nullptr, 0);
            }
            EXPECT_TRUE(same_pictures(network.picture(), full)) << ratio << " " << per_slice;
        }
}

TEST(gsStructureSkipper, copies_nothing_when_the_share_changes)
{
    Network network;
    network.full();
    const unsigned long long uploaded = network.window.device().geometry().bytes_uploaded();
    dgImage last;
    for (const double ratio : {0.2, 0.7, 0.4})
    {
        gsStructureSkipper skipper(0, ratio);
        const dgImage thinned = network.drawn(&skipper, nullptr);
        EXPECT_FALSE(same_pictures(thinned, last)) << ratio;
        EXPECT_TRUE(same_pictures(thinned, network.drawn(&skipper, nullptr))) << ratio;
        last = thinned;
    }
    EXPECT_EQ(network.window.device().geometry().bytes_uploaded(), uploaded);
}

TEST(gsStructureSkipper, a_thinned_picture_reaches_everywhere)
{
    // One sheet fills the view: a fifth of its triangles must leave a trace in every tenth of the picture.
    Scene scene(160, 160);
    scene.add(sheet(256, 159, 0));
    gsStructureSkipper skipper(2 * 256 * 256, 0.2);
    scene.view.erase(dgERASE_ZBUFFER_YES);
    scene.renderer.render_action(&skipper);
    scene.view.render_network(nullptr);
    scene.renderer.render_action(nullptr);
    const dgImage thinned = scene.picture();
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 10; ++column)
        {
            int drawn = 0;
            for (int y = 16 * row; y < 16 * row + 16; ++y)
                for (int x = 16 * column; x < 16 * column + 16; ++x)
                    drawn += !(pixel_at(thinned, x, y) == Pixel{0, 0, 0});
            EXPECT_GT(drawn, 5) << row << " " << column;
            EXPECT_LT(drawn, 200) << row << " " << column;
        }
}

TEST(grViewRefresherFast, idle_time_and_the_end_show_the_same_as_a_full_redraw)
{
    const HighRate guard;
    Network network;
    grViewRefresherFast refresher({&network.view});
    refresher.base_start_twiddle();
    for (int i = 0; i < 4; ++i)
    {
        network.view.camera().rotate_view(gi_Y_AXIS, 0.05);
        refresher.base_refresh();
    }
    const dgImage thinned = network.front();
    int calls = 0;
    while (refresher.base_idle() != grIDLE_DONE && calls < 1000000)
        ++calls;
    EXPECT_GT(calls, 0);
    const dgImage completed = network.front();
    refresher.base_end_twiddle();
    const dgImage ended = network.front();
    const dgImage full = network.full();
    EXPECT_FALSE(same_pictures(thinned, full));
    EXPECT_TRUE(same_pictures(completed, full));
    EXPECT_TRUE(same_pictures(ended, full));
}

TEST(grViewRefreshers, end_on_the_full_picture_after_resizes_edits_and_removals)
{
    const HighRate guard;
    grTimeoutRendererCache cache(16);
    using Make = std::function<std::unique_ptr<grViewRefresher>(const dgViewcoDList&)>;
    const struct
    {
        const char* name;
        Make make;
    } refreshers[] = {
        {"full", [](const dgViewcoDList& views) { return std::make_unique<grViewRefresherFull>(views); }},
        {"fast", [](const dgViewcoDList& views) { return std::make_unique<grViewRefresherFast>(views); }},
        {"time-out", [&](const dgViewcoDList& views)
         { return std::make_unique<grViewRefresherTimeout>(views, &cache, 1e5, 1, 1, 1); }},
    };
    for (const auto& kind : refreshers)
    {
        Network network;
        auto other = std::make_unique<dgView>(&network.renderer);
        other->root(network.root.get());
        other->camera().view_port_dc(giBox2(0, 0, 10, 10));
        const std::unique_ptr<grViewRefresher> refresher = kind.make({&network.view, other.get()});
        refresher->base_start_twiddle();
        const auto frame = [&]
        {
            network.view.camera().rotate_view(gi_Y_AXIS, 0.05);
            refresher->base_refresh();
            refresher->base_idle();
        };
        for (int i = 0; i < 4; ++i)
            frame();
        network.root->delete_range(3, 5);
        frame();
        network.root->add(sheet(30, 100, 40));
        refresher->base_idle();
        frame();
        network.window.resize(200, 100);
        network.view.camera().window_size(giVector2(200, 100));
        network.view.camera().view_port_dc(giBox2(0, 0, 199, 99));
        refresher->base_idle();
        frame();
        other.reset();
        refresher->base_idle();
        frame();
        refresher->force_redraw_on_end_twiddle();
        refresher->base_end_twiddle();
        const dgImage ended = network.front();
        EXPECT_TRUE(same_pictures(ended, network.full())) << kind.name;
    }
}

TEST(gsFullQuality, has_everything_stored_and_holds_a_quality_until_it_ends)
{
    // Tells the quality that it is drawn in.
    class Asking : public dgAppElement
    {
    public:
        explicit Asking(std::vector<double>& told) : the_told(told) {}
        Asking* copy() const override { return new Asking(the_told); }
        void draw(dgRenderer* renderer) const override
        {
            the_told.push_back(renderer->get_pipeline_draw_quality().text_quality);
        }

    private:
        std::vector<double>& the_told;
    };
    std::vector<double> told;
    Scene scene;
    dgTriangleBlock* const block = sheet(4, 40, 0);
    scene.add(block);
    scene.add(new Asking(told));
    dgDrawQuality of_renderer, full, own;
    of_renderer.text_quality = 0.25;
    full.text_quality = 0.5;
    own.text_quality = 0.75;
    scene.renderer.set_in_pipeline_context(&of_renderer);
    for (const dgDrawQuality* before :
         {static_cast<const dgDrawQuality*>(nullptr), static_cast<const dgDrawQuality*>(&own)})
    {
        scene.root->draw_quality(before);
        block->block_changed(); // what is stored is out of date
        const gsFullQuality full_quality(*scene.root, scene.renderer, full);
        EXPECT_TRUE(scene.window.device().geometry().is_stored(*block));
        scene.draw();
    }
    scene.draw();
    scene.root->draw_quality(nullptr);
    scene.draw();
    EXPECT_EQ(told, (std::vector<double>{0.5, 0.5, 0.75, 0.25}));
}
