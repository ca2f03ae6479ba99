#include "tsBands.h"

#include "gsColour.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

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
