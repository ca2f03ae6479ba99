#include "tsBands.h"

#include "grRubberBandGraphicalElement.h"

#include "apClockOverride.h"
#include "gsColour.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace
{
grRubberBandItemState state(const tsCountedItem& item)
{
    return item.item->state();
}

int asked = 0;

int counted_answer(dgRenderer*, void* answer)
{
    ++asked;
    return *static_cast<int*>(answer);
}
}

TEST(grRubberBandManager, takes_items_off_and_puts_them_back_by_xor)
{
    tsBands bands;
    const dgRef<grRubberBandItem> item(
        new grRubberBandGraphicalElement(&bands.renderer, &bands.view, tsSegments(3).get(), nullptr));
    tsCountedItem drawn(bands.renderer), not_drawn(bands.renderer);
    grRubberBandManager::set_xor_mode_with_stencil_planes(0);
    grRubberBandManager::add(item.get());
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    drawn.draw();
    bands.take_log();

    grRubberBandManager::temp_undraw(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog{"xor draw lines 3 of 1"});
    EXPECT_EQ(item->state(), grTEMP_UNDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(drawn.undrawn, 1);
    EXPECT_EQ(not_drawn.undrawn, 0);
    EXPECT_EQ(bands.renderer.current_driver_index(), 0);
    grRubberBandManager::temp_undraw(&bands.renderer);
    EXPECT_EQ(drawn.undrawn, 1) << "it is off already";

    grRubberBandManager::update(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog{"xor draw lines 3 of 1"});
    EXPECT_EQ(item->state(), grDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(drawn.drawn, 2);
    EXPECT_EQ(drawn.driver, 1);
    EXPECT_EQ(not_drawn.drawn, 0) << "only what was taken off is put back";
    EXPECT_EQ(bands.renderer.current_driver_index(), 0);
    grRubberBandManager::remove(item.get());
}

TEST(grRubberBandManager, takes_items_off_an_overlay_by_erasing_it)
{
    tsBands bands(1);
    tsCountedItem item(bands.renderer);
    item.draw();
    bands.renderer.select_driver(0);
    grRubberBandManager::temp_undraw(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog{"overlay clear 0 0 99 79 colour depth"});
    EXPECT_EQ(item.undrawn, 0);
    EXPECT_EQ(state(item), grTEMP_UNDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(bands.renderer.current_driver_index(), 1);
    bands.renderer.select_driver(0);
    grRubberBandManager::update(&bands.renderer);
    EXPECT_EQ(item.drawn, 2);
    EXPECT_EQ(item.driver, 1);
    EXPECT_EQ(bands.renderer.current_driver_index(), 0);
}

TEST(grRubberBandManager, leaves_items_in_the_main_planes_to_the_coming_redraw)
{
    tsBands bands;
    int answer = 1;
    grRubberBandManager::set_redraw_callback(counted_answer, &answer);
    tsCountedItem item(bands.renderer);
    item.draw();
    grRubberBandManager::temp_undraw(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog());
    EXPECT_EQ(item.undrawn, 0);
    EXPECT_EQ(state(item), grTEMP_UNDRAWN_RUBBER_BAND_ITEM);
    item.undraw();
    EXPECT_EQ(state(item), grTEMP_UNDRAWN_RUBBER_BAND_ITEM) << "what is not drawn is not undrawn either";
    grRubberBandManager::update(&bands.renderer);
    EXPECT_EQ(item.drawn, 2);
    EXPECT_EQ(item.driver, 0);
}

TEST(grRubberBandManager, redraws_all_items_of_a_renderer_that_are_not_drawn)
{
    tsBands bands, others;
    tsCountedItem fresh(bands.renderer), erased(bands.renderer), drawn(bands.renderer), except(bands.renderer),
        elsewhere(others.renderer);
    erased.draw();
    grRubberBandManager::erased(&bands.renderer);
    drawn.draw();
    grRubberBandManager::suspend_rubber_banding(1); // stops draw alone
    grRubberBandManager::redraw(&bands.renderer, except.item.get());
    EXPECT_EQ(fresh.drawn, 1);
    EXPECT_EQ(erased.drawn, 2);
    EXPECT_EQ(drawn.drawn, 1);
    EXPECT_EQ(except.drawn, 0);
    EXPECT_EQ(elsewhere.drawn, 0);
    EXPECT_EQ(fresh.driver, 1);
    EXPECT_EQ(bands.renderer.current_driver_index(), 0);
    grRubberBandManager::redraw(&bands.renderer);
    EXPECT_EQ(except.drawn, 1);
}

TEST(grRubberBandManager, draws_and_undraws_nothing_while_suspended)
{
    tsBands bands;
    tsCountedItem item(bands.renderer);
    grRubberBandManager::suspend_rubber_banding(1);
    item.draw();
    EXPECT_EQ(item.drawn, 0);
    grRubberBandManager::suspend_rubber_banding(0);
    item.draw();
    grRubberBandManager::suspend_rubber_banding(1);
    item.undraw();
    EXPECT_EQ(item.undrawn, 0);
    EXPECT_EQ(state(item), grDRAWN_RUBBER_BAND_ITEM);
}

TEST(grRubberBandManager, keeps_the_list_as_long_as_one_manager_exists_and_starts_with_the_defaults)
{
    tsBands bands;
    {
        const grRubberBandManager second;
        grRubberBandManager::minimum_framerate(7);
    }
    EXPECT_EQ(grRubberBandManager::minimum_framerate(), 7);
    tsCountedItem item(bands.renderer);
    grRubberBandManager::add(item.item.get());
    grRubberBandManager::remove(item.item.get());
    EXPECT_TRUE(grRubberBandManager::item_in_list(item.item.get())) << "an item in the list twice leaves it once";
    grRubberBandManager::clear();
    EXPECT_TRUE(grRubberBandManager::empty());
    EXPECT_EQ(item.item->reference_count(), 1) << "items are not owned";
    grRubberBandManager::remove(item.item.get());
    grRubberBandManager::add(item.item.get());
    item.item.reset();
    EXPECT_TRUE(grRubberBandManager::empty()) << "a dead item leaves the list";
}

TEST(grRubberBandManager, bears_every_call_without_a_manager)
{
    std::optional<tsBands> bands(std::in_place);
    auto item = std::make_unique<tsCountedItem>(bands->renderer);
    bands->manager.~grRubberBandManager();
    EXPECT_TRUE(grRubberBandManager::empty());
    grRubberBandManager::add(item->item.get());
    EXPECT_FALSE(grRubberBandManager::item_in_list(item->item.get()));
    EXPECT_FALSE(grRubberBandManager::items_cancelled());
    item->draw();
    EXPECT_EQ(item->drawn, 1);
    grRubberBandManager::temp_undraw(&bands->renderer);
    grRubberBandManager::update(&bands->renderer);
    item->undraw();
    EXPECT_EQ(item->undrawn, 1);
    item.reset();
    grRubberBandManager::minimum_framerate(7);
    new (&bands->manager) grRubberBandManager;
    EXPECT_EQ(grRubberBandManager::minimum_framerate(), 20) << "defaults are set each time the first one comes";
}

TEST(grRubberBandManager, items_of_a_deleted_renderer_or_view_are_never_drawn_again_but_stay_in_the_list)
{
    tsBands bands;
    dgView other_view(&bands.renderer);
    const dgRef<grRubberBandItem> item(
        new grRubberBandGraphicalElement(&bands.renderer, &bands.view, tsSegments(3).get(), nullptr));
    const dgRef<grRubberBandItem> other(
        new grRubberBandGraphicalElement(&bands.renderer, &other_view, tsSegments(4).get(), nullptr));
    tsCountedItem of_renderer(bands.renderer);
    grRubberBandManager::set_xor_mode_with_stencil_planes(0);
    for (grRubberBandItem* added : {item.get(), other.get()})
    {
        grRubberBandManager::add(added);
        grRubberBandManager::draw(added, grDRAW_RUBBER_BAND_ITEM);
    }
    of_renderer.draw();
    bands.take_log();

    EXPECT_FALSE(grRubberBandManager::items_cancelled());
    grRubberBandManager::to_be_deleted(&bands.view);
    EXPECT_TRUE(grRubberBandManager::items_cancelled());
    EXPECT_TRUE(item->cancelled());
    EXPECT_TRUE(grRubberBandManager::item_in_list(item.get()));
    grRubberBandManager::temp_undraw(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog{"xor draw lines 4 of 1"});
    EXPECT_EQ(item->state(), grDRAWN_RUBBER_BAND_ITEM) << "a cancelled item keeps its state";
    item->draw(grUNDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_SELECT_DRIVER);
    EXPECT_EQ(bands.take_log(), tsLog());

    grRubberBandManager::to_be_deleted(&bands.renderer);
    EXPECT_TRUE(other->cancelled());
    grRubberBandManager::update(&bands.renderer);
    EXPECT_EQ(bands.take_log(), tsLog());
    EXPECT_EQ(of_renderer.drawn, 1);
    grRubberBandManager::remove(item.get());
    grRubberBandManager::remove(other.get());
}

TEST(grRubberBandManager, survives_items_that_die_in_the_middle_of_an_update)
{
    tsBands bands;
    static std::vector<dgRef<grRubberBandCallback>> items;
    static int drawn;
    drawn = 0;
    // The second item releases the first, itself and the third; the fourth is drawn all the same.
    for (int i = 0; i < 4; ++i)
    {
        items.emplace_back(new grRubberBandCallback(
            &bands.renderer,
            [](grRubberBandItem* item, grRubberBandIt)
            {
                ++drawn;
                if (drawn > 4 && items[1].get() == item)
                    for (int dying = 0; dying < 3; ++dying)
                        items[static_cast<std::size_t>(dying)].reset();
            },
            nullptr));
        grRubberBandManager::add(items.back().get());
        grRubberBandManager::draw(items.back().get(), grDRAW_RUBBER_BAND_ITEM);
    }
    grRubberBandManager::erased(&bands.renderer);
    const int before = grRubberBandItem::instance_count();
    grRubberBandManager::update(&bands.renderer);
    EXPECT_EQ(drawn, 4 + 3);
    EXPECT_EQ(items[3]->state(), grDRAWN_RUBBER_BAND_ITEM);
    EXPECT_EQ(grRubberBandItem::instance_count(), before - 3);
    EXPECT_EQ(bands.renderer.current_driver_index(), 0);
    items.clear();
}

TEST(grRubberBandManager, survives_a_renderer_that_dies_in_the_middle_of_an_update)
{
    for (const int undraw : {0, 1})
    {
        tsBands bands;
        static std::unique_ptr<dgRenderer> doomed;
        static int doom;
        doom = 0;
        doomed = std::make_unique<dgRenderer>(&bands.main, nullptr);
        tsCountedItem first(*doomed);
        const dgRef<grRubberBandCallback> item(new grRubberBandCallback(
            doomed.get(),
            [](grRubberBandItem*, grRubberBandIt)
            {
                if (!doom)
                    return;
                grRubberBandManager::to_be_deleted(doomed.get());
                doomed.reset();
            },
            nullptr));
        tsCountedItem last(*doomed);
        grRubberBandManager::add(item.get());
        first.draw();
        grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
        last.draw();
        doom = 1;
        if (!undraw)
            grRubberBandManager::erased(doomed.get());
        if (undraw)
            grRubberBandManager::temp_undraw(doomed.get());
        else
            grRubberBandManager::update(doomed.get());
        EXPECT_EQ(doomed, nullptr);
        EXPECT_TRUE(item->cancelled());
        EXPECT_TRUE(last.item->cancelled());
        grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
        grRubberBandManager::remove(item.get());
    }
}

TEST(grRubberBandManager, mode_is_the_overlay_where_there_is_one_and_else_follows_the_decision)
{
    tsBands plain, layered(1);
    int answer = 0;
    EXPECT_EQ(grRubberBandManager::mode(&plain.renderer), grRUBBER_BAND_VIA_XOR);
    grRubberBandManager::set_redraw_callback(counted_answer, &answer);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 1) << "a callback turns the flag on";
    EXPECT_EQ(grRubberBandManager::mode(&plain.renderer), grRUBBER_BAND_VIA_XOR);
    answer = 1;
    EXPECT_EQ(grRubberBandManager::mode(&plain.renderer), grRUBBER_BAND_IN_MAIN_PLANES);
    EXPECT_EQ(grRubberBandManager::mode(&layered.renderer), grRUBBER_BAND_IN_OVERLAY_PLANES);
    grRubberBandManager::rubber_band_via_redraw(0);
    EXPECT_EQ(grRubberBandManager::mode(&plain.renderer), grRUBBER_BAND_IN_MAIN_PLANES)
        << "the callback goes on deciding";
    grRubberBandManager::set_redraw_callback(nullptr, nullptr);
    EXPECT_EQ(grRubberBandManager::mode(&plain.renderer), grRUBBER_BAND_VIA_XOR);
    grRubberBandManager::rubber_band_via_redraw(1);
    grRubberBandManager::set_redraw_callback(nullptr, nullptr);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(), 1) << "a null callback leaves the flag as it was";
}

TEST(grRubberBandManager, asks_for_the_decision_once_per_drawing)
{
    tsBands plain, layered(1);
    int answer = 0;
    grRubberBandManager::set_redraw_callback(counted_answer, &answer);
    for (tsBands* bands : {&plain, &layered})
    {
        tsCountedItem item(bands->renderer);
        asked = 0;
        item.draw();
        EXPECT_EQ(asked, 1);
    }
}

TEST(grRubberBandManager, sorts_out_what_an_erase_and_render_needs)
{
    tsBands plain, layered(1);
    int answer = 0;
    const auto sort_out = [](tsBands& bands)
    {
        int first = -1, second = -1;
        const int result =
            grRubberBandManager::sort_out_rubber_banding_on_erase_and_render(&bands.renderer, first, second);
        return std::vector<int>{result, first, second};
    };
    using Result = std::vector<int>;
    EXPECT_EQ(sort_out(plain), (Result{0, 0, 0})) << "no items";
    tsCountedItem item(plain.renderer);
    grRubberBandManager::to_be_deleted(&plain.renderer); // so that there is no last renderer
    EXPECT_EQ(sort_out(plain), (Result{0, 0, 1})) << "no last renderer";
    plain.renderer.select_driver(1);
    EXPECT_EQ(grRubberBandManager::renderer_in_xor_mode(&plain.renderer), 1);
    EXPECT_EQ(sort_out(plain), (Result{1, 1, 0})) << "last in XOR mode";
    EXPECT_EQ(sort_out(layered), (Result{1, 1, 0})) << "whichever renderer that was";
    plain.renderer.select_driver(0);
    EXPECT_EQ(grRubberBandManager::renderer_in_xor_mode(&plain.renderer), 0);
    EXPECT_EQ(grRubberBandManager::last_renderer_was_in_xor_mode(), 0);
    EXPECT_EQ(sort_out(plain), (Result{0, 0, 1}));
    grRubberBandManager::set_redraw_callback(counted_answer, &answer);
    EXPECT_EQ(sort_out(plain), (Result{1, 0, 0})) << "the flag counts, not the answer 0";
    EXPECT_EQ(sort_out(layered), (Result{0, 0, 1}));
    grRubberBandManager::do_redraw(0);
    EXPECT_EQ(sort_out(plain), (Result{0, 0, 0}));
}

TEST(grRubberBandManager, xor_colour_shows_the_wanted_one_over_the_background)
{
    tsBands bands; // the view holds the pixel (25, 20) of 100 by 80
    dgViewShadingContext& shading = bands.view.shading_context();
    shading.background_colour = gsColour(0.2, 0.4, 1); // 51, 102, 255
    const gsColour wanted(1, 0, 15 / 255.0);
    EXPECT_EQ(grRubberBandManager::calculate_xor_colour(&bands.renderer, wanted), wanted) << "not asked for";
    grRubberBandManager::calculate_colour_in_xor_mode(1);
    EXPECT_EQ(grRubberBandManager::calculate_xor_colour(&bands.renderer, wanted),
              gsColour((51 ^ 255) / 255.0, 102 / 255.0, (255 ^ 15) / 255.0));
    shading.graduated_background = 1;
    shading.top_colour = gsColour(0, 0.6, 0);
    shading.bottom_colour = gsColour(0.4, 0.2, 0); // mean 0.2, 0.4, 0
    EXPECT_EQ(grRubberBandManager::calculate_xor_colour(&bands.renderer, wanted),
              gsColour((51 ^ 255) / 255.0, 102 / 255.0, 15 / 255.0));
    bands.view.camera().view_port_dc(giBox2(26, 20, 99, 79));
    EXPECT_EQ(grRubberBandManager::calculate_xor_colour(&bands.renderer, wanted), wanted) << "no view at (25, 20)";
}

// The timed decision, on one renderer with one item.
namespace
{
struct TimedDecision : testing::Test
{
    TimedDecision() { grRubberBandManager::rubber_band_via_redraw(1); }

    // What a draw of the item decides: 1 when it is drawn in the main planes.
    int draw()
    {
        item.draw();
        const int via_redraw = item.driver == 0;
        item.undraw();
        return via_redraw;
    }

    apClockOverride clock{0, 1000};
    tsBands bands;
    tsCountedItem item{bands.renderer};
};
}

TEST_F(TimedDecision, a_renderer_without_times_is_fast)
{
    EXPECT_EQ(grRubberBandManager::mode(&bands.renderer), grRUBBER_BAND_IN_MAIN_PLANES);
    EXPECT_EQ(draw(), 1);
    tsBands layered(1);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(&layered.renderer), 1);
    grRubberBandManager::rubber_band_via_redraw(0);
    EXPECT_EQ(grRubberBandManager::rubber_band_via_redraw(&layered.renderer), 0);
}

TEST(grRubberBandManager, prints_its_state_and_its_items)
{
    tsBands bands;
    tsCountedItem item(bands.renderer);
    item.draw();
    std::ostringstream expected, printed;
    const void* renderer = &bands.renderer;
    expected << "grRubberBandManager {\n"
                "existence counter for this class is 1\n"
                "do redraw flag is 1\n"
                "last renderer is "
             << renderer
             << "\n"
                "last renderer in xor mode flag was 1\n"
                "  total of 1 grRubberBandItems\n"
                "  item 0 is "
             << item.item.get()
             << "\n"
                "grRubberBandCallback {\n"
                "grRubberBandItem {\n"
                "  type is grRUBBER_BAND_CALLBACK_ITEM\n"
                "  renderer is "
             << renderer
             << "\n"
                "  state is grDRAWN_RUBBER_BAND_ITEM\n"
                "  user_data is "
             << static_cast<void*>(&item)
             << "\n"
                "  cancelled is 0\n"
                "  turn off hlhsr flag is 1\n"
                "  the_have_turned_off_hlhsr is 0\n"
                "  the_saved_hlhsr_mode is 1\n"
                "}\n"
                "}\n"
                "}\n";
    printed << bands.manager;
    EXPECT_EQ(printed.str(), expected.str());
    grRubberBandManager::add(nullptr);
    printed.str("");
    grRubberBandManager::print(printed);
    EXPECT_NE(printed.str().find("item is 0 !!"), std::string::npos);
    item.undraw();
    EXPECT_EQ(item.undrawn, 1) << "a null item is passed over";
}
