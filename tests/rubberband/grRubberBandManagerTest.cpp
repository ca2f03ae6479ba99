#include "grRubberBandColourAppElement.h"
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

TEST(grRubberBandColourAppElement, uses_the_managers_colour_in_xor_mode_alone_and_when_so_constructed)
{
    tsBands bands;
    const gsColour own(1, 0, 0), managers(0, 1, 0);
    grRubberBandManager::rubber_band_colour(managers);
    const dgRef<grRubberBandColourAppElement> plain(new grRubberBandColourAppElement(own, grLINE_COLOUR));
    // Deliberate: the enumerator does not matter.
    const dgRef<grRubberBandColourAppElement> asking(
        new grRubberBandColourAppElement(grDO_NOT_USE_MANAGER_COLOUR_IN_XOR_MODE, own, grLINE_COLOUR));
    const dgRef<grRubberBandColourAppElement> copied(asking->copy());
    for (const auto* element : {asking.get(), copied.get()})
    {
        EXPECT_EQ(element->calculate_rubber_band_colour(&bands.renderer), own);
        bands.renderer.select_driver(1);
        EXPECT_EQ(element->calculate_rubber_band_colour(&bands.renderer), managers);
        EXPECT_EQ(plain->calculate_rubber_band_colour(&bands.renderer), own);
        grRubberBandManager::calculate_colour_in_xor_mode(1);
        bands.view.camera().view_port_dc(giBox2(0, 0, 99, 79));
        bands.view.shading_context().background_colour = gsColour(1, 1, 1);
        EXPECT_EQ(element->calculate_rubber_band_colour(&bands.renderer), gsColour(1, 0, 1));
        EXPECT_EQ(plain->calculate_rubber_band_colour(&bands.renderer), gsColour(0, 1, 1));
        grRubberBandManager::calculate_colour_in_xor_mode(0);
        bands.renderer.select_driver(0);
    }
}

TEST(grRubberBandColourAppElement, colours_the_primitives_of_its_type)
{
    tsBands bands;
    bands.main.record_state(1);
    const dgRef<grRubberBandColourAppElement> element(
        new grRubberBandColourAppElement(gsColour(1, 0, 0), grLINE_COLOUR));
    const auto line_and_marker = [&](grPrimColourType type)
    {
        element->set(gsColour(1, 0, 0), type);
        bands.main.clear_log();
        bands.view.begin();
        bands.view.execute(*element);
        bands.view.execute(*tsSegments(1));
        bands.view.end();
        std::string colours;
        for (const std::string& line : bands.main.log())
            if (line.starts_with("state line "))
                colours = line.substr(11, 5) + "," + line.substr(line.find("marker ") + 7, 5);
        return colours;
    };
    EXPECT_EQ(line_and_marker(grLINE_COLOUR), "1 0 0,1 1 1");
    EXPECT_EQ(line_and_marker(grMARKER_COLOUR), "1 1 1,1 0 0");
    EXPECT_EQ(line_and_marker(grTEXT_COLOUR), "1 1 1,1 1 1");
    EXPECT_EQ(line_and_marker(grALL_PRIM_COLOUR), "1 0 0,1 0 0");
    EXPECT_EQ(line_and_marker(static_cast<grPrimColourType>(4)), "1 1 1,1 1 1");
}
