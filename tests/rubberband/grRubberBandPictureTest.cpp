#include "../opengl/renderScene.h"

#include "grCanvas.h"
#include "grRubberBandCallback.h"
#include "grRubberBandColourAppElement.h"
#include "grRubberBandGraphicalElement.h"
#include "grRubberBandManager.h"
#include "grRubberBandStructure.h"
#include "grTimeoutRendererCache.h"
#include "grViewRefresherFast.h"
#include "grViewRefresherFull.h"
#include "grViewRefresherTimeout.h"
#include "gr_rubber_band.h"

#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgMultiline.h"
#include "dgPolyline.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "gsColour.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
constexpr int width = 64, height = 48;
const Pixel black{0, 0, 0};
const Pixel white{255, 255, 255};

int via_redraw(dgRenderer*, void*)
{
    return 1;
}

// A canvas with one view over the window, in which world x and y are pixels, of many small unlit triangles in colours
// and depths of all kinds.
struct NoisyCanvas
{
    explicit NoisyCanvas(int with_overlay)
        : window(test_device(), width, height),
          canvas(&window, with_overlay ? window.overlay() : nullptr, nullptr, nullptr), view(canvas.add_view())
    {
        view.camera().view_window(giBox2(-0.5, -0.5, width - 0.5, height - 0.5));
        view.camera().front_back_plane(100, -100);
        view.user_clip_planes(1);
        view.shading_context().graduated_background = 1;
        const dgRef<dgClientStructure> root(new dgClientStructure);
        root->add(new dgLighting(0));
        std::mt19937 random(1);
        const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        for (int i = 0; i < 60; ++i)
        {
            root->add(new dgSurfaceColour(gsColour(below(256) / 255.0, below(256) / 255.0, below(256) / 255.0)));
            const double x = below(width), y = below(height), z = below(160) - 80;
            root->add(triangles({{x, y, z}, {x + 19, y + 4, z + 5}, {x + 6, y + 17, z - 5}}));
        }
        view.root(root.get());
        canvas.resized();
    }
    ~NoisyCanvas() { EXPECT_TRUE(window.device().no_errors()); }

    dgImage picture() const
    {
        dgImage image;
        const_cast<dgGLWindow&>(window).read_front(image);
        return image;
    }
    dgRenderer* renderer() { return canvas.renderer(); }

    dgGLWindow window;
    grCanvas canvas;
    dgView& view;
};

dgRef<dgPolyline> random_line(std::mt19937& random)
{
    std::vector<giPoint3> points;
    for (int i = 0; i < 4; ++i)
        points.emplace_back(static_cast<double>(random() % width), static_cast<double>(random() % height),
                            static_cast<double>(random() % 150) - 75);
    return dgRef<dgPolyline>(new dgPolyline(std::move(points)));
}

void draw_lines(grRubberBandItem* item, grRubberBandIt)
{
    gr_draw_device_lines(item->renderer(), *static_cast<const dgMultiline*>(item->user_data()));
}

// One item of each kind, of random lines.
struct Items
{
    Items(NoisyCanvas& canvas, std::mt19937& random)
    {
        const dgRef<dgPolyline> device_line = random_line(random);
        for (int i = 0; i + 1 < device_line->count(); ++i)
            lines.add(std::vector<giPoint3>{device_line->point(i), device_line->point(i + 1)});
        const dgRef<dgClientStructure> structure(new dgClientStructure);
        structure->add(new dgLineWidth(1 + static_cast<double>(random() % 4)));
        structure->add(new dgLineColour(gsColour(0.9, 0.3, 0.7)));
        structure->add(random_line(random).get());
        structure->add(random_line(random).get());
        dgRenderer* renderer = canvas.renderer();
        items = {new grRubberBandCallback(renderer, draw_lines, &lines),
                 new grRubberBandStructure(renderer, &canvas.view, structure.get(), nullptr),
                 new grRubberBandGraphicalElement(renderer, &canvas.view, random_line(random).get(), nullptr)};
        for (const auto& item : items)
        {
            grRubberBandManager::add(item.get());
            item->set_turn_off_hlhsr(random() % 2);
        }
    }
    void undraw()
    {
        for (const auto& item : items)
            grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    }

    dgMultiline lines;
    std::vector<dgRef<grRubberBandItem>> items;
};

// A thousand random sequences of everything that draws or undraws; after each, undrawing what is left must leave the
// scene alone.
void play(NoisyCanvas& canvas)
{
    constexpr int sequences = 1000, steps = 6;
    const dgImage scene = canvas.picture();
    std::mt19937 random(7);
    int changed = 0;
    for (int sequence = 0; sequence < sequences; ++sequence)
    {
        Items items(canvas, random);
        for (int step = 0; step < steps; ++step)
        {
            grRubberBandItem* item = items.items[random() % items.items.size()].get();
            switch (random() % 8)
            {
            case 0:
            case 1:
            case 2: grRubberBandManager::draw(item, grDRAW_RUBBER_BAND_ITEM); break;
            case 3:
            case 4: grRubberBandManager::draw(item, grUNDRAW_RUBBER_BAND_ITEM); break;
            case 5: grRubberBandManager::redraw(canvas.renderer(), item); break;
            case 6:
                // A promise to redraw the scene, which the manager is given here.
                grRubberBandManager::temp_undraw(canvas.renderer());
                canvas.canvas.erase_and_render_views(canvas.window.device_box(), 1, 1);
                grRubberBandManager::update(canvas.renderer());
                break;
            case 7:
                canvas.canvas.erase_and_render_views(giBox2(20, 10, 40, 30), 1, 1);
                grRubberBandManager::update(canvas.renderer());
                break;
            }
        }
        changed += !same_pictures(canvas.picture(), scene);
        items.undraw();
        ASSERT_TRUE(same_pictures(canvas.picture(), scene)) << "sequence " << sequence;
    }
    EXPECT_GT(changed, sequences / 2) << "items were to be seen before they were undrawn";
}
}

TEST(grRubberBandPicture, sequences_leave_the_scene_to_the_bit)
{
    const struct
    {
        int overlay, stencil, redraw;
        grRubberBandMode mode;
    } techniques[] = {{0, 1, 0, grRUBBER_BAND_VIA_XOR},
                      {0, 0, 0, grRUBBER_BAND_VIA_XOR},
                      {1, 1, 0, grRUBBER_BAND_IN_OVERLAY_PLANES},
                      {0, 1, 1, grRUBBER_BAND_IN_MAIN_PLANES}};
    for (const auto& technique : techniques)
    {
        NoisyCanvas canvas(technique.overlay);
        grRubberBandManager::set_xor_mode_with_stencil_planes(technique.stencil);
        grRubberBandManager::set_redraw_callback(technique.redraw ? via_redraw : nullptr, nullptr);
        play(canvas);
        EXPECT_EQ(grRubberBandManager::mode(canvas.renderer()), technique.mode);
    }
}

// One of two views beside each other is redrawn, while a line over both has been elsewhere in the buffer that is not
// seen.
TEST(grRubberBandPicture, redrawing_one_view_leaves_nothing_of_bands_that_are_gone)
{
    for (const char* kind : {"full", "fast", "timeout"})
    {
        NoisyCanvas canvas(0);
        const grRubberBandManager manager;
        grRubberBandManager::set_redraw_callback(via_redraw, nullptr);
        dgView& beside = canvas.canvas.add_view();
        beside.camera() = canvas.view.camera();
        beside.root(canvas.view.root());
        canvas.view.camera().view_port_dc(giBox2(0, 0, 29, height - 1));
        beside.camera().view_port_dc(giBox2(34, 0, width - 1, height - 1));
        canvas.canvas.erase_and_render_views(canvas.window.device_box(), 1, 1);
        for (const int y : {10, 20})
        {
            gr_undraw_rubber_banding();
            gr_rubber_band_line(0, y, width - 1, y);
            gr_draw_rubber_banding(canvas.renderer());
        }
        const dgImage before = canvas.picture();
        const dgViewcoDList views{&canvas.view};
        grTimeoutRendererCache cache(16);
        std::unique_ptr<grViewRefresher> refresher;
        if (kind[1] == 'u')
            refresher = std::make_unique<grViewRefresherFull>(views);
        else if (kind[0] == 'f')
            refresher = std::make_unique<grViewRefresherFast>(views);
        else
            refresher = std::make_unique<grViewRefresherTimeout>(views, &cache, 1.0, 1, 1, 1);
        refresher->base_start_twiddle();
        for (int frame = 1; frame <= 3; ++frame)
        {
            refresher->base_refresh();
            EXPECT_TRUE(same_pictures(canvas.picture(), before)) << kind << " frame " << frame;
        }
        refresher->force_redraw_on_end_twiddle();
        refresher->base_end_twiddle();
        EXPECT_TRUE(same_pictures(canvas.picture(), before)) << kind << " end";
        gr_undraw_rubber_banding();
    }
}

TEST(grRubberBandPicture, a_pixel_that_lines_of_one_item_share_is_inverted_once_with_the_stencil)
{
    const grRubberBandManager manager;
    for (const int stencil : {1, 0})
    {
        Scene scene;
        scene.draw();
        grRubberBandManager::set_xor_mode_with_stencil_planes(stencil);
        const dgRef<dgClientStructure> structure(new dgClientStructure);
        structure->add(new dgPolyline({{5, 10, 0}, {40, 10, 0}}));
        structure->add(new dgPolyline({{20, 5, 0}, {20, 30, 0}}));
        structure->add(new dgPolyline({{5, 10, 0}, {15, 10, 0}}));
        const dgRef<grRubberBandItem> item(
            new grRubberBandStructure(&scene.renderer, &scene.view, structure.get(), nullptr));
        grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
        const dgImage picture = scene.picture();
        EXPECT_EQ(pixel_at(picture, 30, 10), white);
        EXPECT_EQ(pixel_at(picture, 20, 10), stencil ? white : black) << "two lines cross";
        EXPECT_EQ(pixel_at(picture, 10, 10), stencil ? white : black) << "two lines lie on each other";
        grRubberBandManager::draw(item.get(), grUNDRAW_RUBBER_BAND_ITEM);
        EXPECT_EQ(count_pixels(scene.picture(), black), 64 * 48);
    }
}

TEST(grRubberBandPicture, the_calculated_colour_shows_as_wanted_over_the_background)
{
    const grRubberBandManager manager;
    grRubberBandManager::calculate_colour_in_xor_mode(1);
    grRubberBandManager::set_default_colour_in_xor_mode(1);
    for (const Pixel& wanted : {Pixel{255, 128, 0}, Pixel{1, 2, 254}, Pixel{37, 37, 37}})
    {
        Scene scene;
        scene.view.shading_context().background_colour = gsColour(51 / 255.0, 102 / 255.0, 217 / 255.0);
        scene.draw();
        grRubberBandManager::rubber_band_colour(
            gsColour(wanted.red / 255.0, wanted.green / 255.0, wanted.blue / 255.0));
        const dgRef<dgClientStructure> structure(new dgClientStructure);
        structure->add(new dgPolyline({{5, 10, 0}, {40, 10, 0}}));
        const dgRef<grRubberBandItem> item(
            new grRubberBandStructure(&scene.renderer, &scene.view, structure.get(), nullptr));
        grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
        EXPECT_EQ(pixel_at(scene.picture(), 20, 10), wanted);

        gr_rubber_band_line(5, 20, 40, 20);
        gr_draw_rubber_banding(&scene.renderer);
        EXPECT_EQ(pixel_at(scene.picture(), 20, 20), wanted);
        gr_undraw_rubber_banding();
    }
}

// The procedural layer, over a black picture: what is white was drawn.
namespace
{
struct Lines : testing::Test
{
    Lines() { scene.draw(); }
    ~Lines() override
    {
        gr_set_cursor_echo_type(0, &scene.renderer);
        gr_undraw_rubber_banding();
        grRubberBandManager::to_be_deleted(&scene.renderer);
    }
    int white_pixels() { return count_pixels(scene.picture(), white); }
    // The pixels that are white are exactly those for which is_drawn answers true; exempt ones may be either.
    template <class IsDrawn>
    void expect_drawn(
        IsDrawn is_drawn, bool (*is_exempt)(int, int) = [](int, int) { return false; })
    {
        const dgImage picture = scene.picture();
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
            {
                if (is_exempt(x, y))
                    continue;
                ASSERT_EQ(pixel_at(picture, x, y), is_drawn(x, y) ? white : black) << x << ' ' << y;
            }
    }

    grRubberBandManager manager;
    Scene scene; // 64 by 48
};
}

TEST_F(Lines, a_box_is_cut_off_to_whole_pixels_towards_zero)
{
    gr_rubber_band_box(giPoint2(10.9, 20.9), giPoint2(-3.7, 5.2)); // (10, 20) and (-3, 5)
    gr_draw_rubber_banding(&scene.renderer);
    // The corners belong to two lines each: which of them is drawn there is left to OpenGL.
    expect_drawn([](int x, int y) { return x <= 10 && y >= 5 && y <= 20 && (x == 10 || y == 5 || y == 20); },
                 [](int x, int y) { return x == 10 && (y == 5 || y == 20); });
    gr_undraw_rubber_banding();
    EXPECT_EQ(white_pixels(), 0);
    gr_undraw_rubber_banding();
    gr_draw_rubber_banding(&scene.renderer);
    EXPECT_EQ(white_pixels(), 0) << "the lines are gone after an undraw";
    EXPECT_TRUE(grRubberBandManager::empty());
}

TEST_F(Lines, the_cross_hair_spans_the_window_and_its_middle_is_inverted_twice)
{
    gr_cursor_echo(30, 7, &scene.renderer);
    EXPECT_EQ(white_pixels(), 0) << "no echo is set";
    gr_set_cursor_echo_type(1, &scene.renderer); // at the last position
    EXPECT_EQ(gr_query_cursor_echo_type(), 1);
    expect_drawn([](int x, int y) { return (x == 30) != (y == 7); });
    gr_cursor_echo(0, 47, &scene.renderer);
    expect_drawn([](int x, int y) { return (x == 0) != (y == 47); });
    int x = -1, y = -1;
    gr_get_last_cursor_pos(x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 47);
    gr_set_cursor_echo_type(2, &scene.renderer); // of no known kind: undrawn only
    EXPECT_EQ(white_pixels(), 0);
    gr_set_cursor_echo_type(1, &scene.renderer);
    gr_set_cursor_echo_type(0, &scene.renderer);
    EXPECT_EQ(white_pixels(), 0);
}

TEST_F(Lines, nothing_is_drawn_while_suspended_but_the_cursor_is_followed)
{
    gr_set_cursor_echo_type(1, &scene.renderer);
    gr_suspend_rubber_banding(1);
    EXPECT_EQ(white_pixels(), 0) << "suspending undraws";
    gr_rubber_band_line(0, 0, 20, 0);
    gr_rubber_band_box(giPoint2(1, 1), giPoint2(9, 9));
    gr_draw_rubber_banding(&scene.renderer);
    gr_cursor_echo(5, 6, &scene.renderer);
    EXPECT_EQ(white_pixels(), 0);
    gr_suspend_rubber_banding(0);
    gr_draw_rubber_banding(&scene.renderer);
    EXPECT_EQ(white_pixels(), 0) << "no line was added meanwhile";
    int x = -1, y = -1;
    gr_get_last_cursor_pos(x, y);
    EXPECT_EQ(x, 5);
    EXPECT_EQ(y, 6);
}

TEST_F(Lines, a_second_drawing_drops_the_first_item_without_undrawing_it)
{
    const int before = grRubberBandItem::instance_count();
    gr_rubber_band_line(0, 3, 63, 3);
    gr_draw_rubber_banding(&scene.renderer);
    gr_draw_rubber_banding(&scene.renderer); // the same line again, inverted back
    EXPECT_EQ(white_pixels(), 0);
    EXPECT_EQ(grRubberBandItem::instance_count(), before + 1);
    gr_undraw_rubber_banding();
    EXPECT_EQ(grRubberBandItem::instance_count(), before);
}

TEST_F(Lines, wide_lines_are_wide_and_leave_the_attributes_of_the_scene_alone)
{
    grRubberBandManager::rubber_band_line_width(3);
    grRubberBandManager::rubber_band_colour(gsColour(0, 1, 0));
    gr_rubber_band_line(-5, 10, 70, 10);
    gr_draw_rubber_banding(&scene.renderer);
    EXPECT_EQ(count_pixels(scene.picture(), Pixel{0, 255, 0}), 3 * 64);
    gr_undraw_rubber_banding();
    scene.add(new dgPolyline({{-5, 20, 0}, {70, 20, 0}}));
    scene.draw();
    EXPECT_EQ(white_pixels(), 64);
}
