#include "grRubberBandColourAppElement.h"
#include "grRubberBandManager.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(grRubberBandColourAppElement, uses_the_managers_colour_in_xor_mode_alone_and_when_so_constructed)
{
    const grRubberBandManager manager;
    tsScene scene;
    dgView& view = *scene.add_view();
    const gsColour own(1, 0, 0), managers(0, 1, 0);
    grRubberBandManager::rubber_band_colour(managers);
    const dgRef<grRubberBandColourAppElement> plain(new grRubberBandColourAppElement(own, grLINE_COLOUR));
    // Deliberate: the enumerator does not matter.
    const dgRef<grRubberBandColourAppElement> asking(
        new grRubberBandColourAppElement(grDO_NOT_USE_MANAGER_COLOUR_IN_XOR_MODE, own, grLINE_COLOUR));
    const dgRef<grRubberBandColourAppElement> copied(asking->copy());
    for (const auto* element : {asking.get(), copied.get()})
    {
        EXPECT_EQ(element->calculate_rubber_band_colour(&scene.renderer()), own);
        scene.renderer().select_driver(1);
        EXPECT_EQ(element->calculate_rubber_band_colour(&scene.renderer()), managers);
        EXPECT_EQ(plain->calculate_rubber_band_colour(&scene.renderer()), own);
        grRubberBandManager::calculate_colour_in_xor_mode(1);
        view.shading_context().background_colour = gsColour(1, 1, 1);
        EXPECT_EQ(element->calculate_rubber_band_colour(&scene.renderer()), gsColour(1, 0, 1));
        EXPECT_EQ(plain->calculate_rubber_band_colour(&scene.renderer()), gsColour(0, 1, 1));
        grRubberBandManager::calculate_colour_in_xor_mode(0);
        scene.renderer().select_driver(0);
    }
}

TEST(grRubberBandColourAppElement, colours_the_primitives_of_its_type)
{
    tsScene scene;
    dgView& view = *scene.add_view();
    scene.window().record_state(1);
    const dgRef<grRubberBandColourAppElement> element(
        new grRubberBandColourAppElement(gsColour(1, 0, 0), grLINE_COLOUR));
    const dgRef<dgStructure> holder = tsLine(1);
    holder->add(element.get());
    const auto line_marker_and_text = [&](grPrimColourType type)
    {
        const auto stamp = holder->network_stamp();
        element->set(gsColour(1, 0, 0), type);
        EXPECT_NE(holder->network_stamp(), stamp);
        scene.window().clear_log();
        view.begin();
        view.execute(*element);
        view.execute(*tsLine(1)->element(0));
        view.end();
        std::string colours;
        for (const std::string& line : scene.window().log())
            if (line.starts_with("state line "))
                colours = line.substr(11, 5) + "," + line.substr(line.find("marker ") + 7, 5) + "," +
                          line.substr(line.find("text ") + 5, 5);
        return colours;
    };
    EXPECT_EQ(line_marker_and_text(grLINE_COLOUR), "1 0 0,1 1 1,1 1 1");
    EXPECT_EQ(line_marker_and_text(grMARKER_COLOUR), "1 1 1,1 0 0,1 1 1");
    EXPECT_EQ(line_marker_and_text(grTEXT_COLOUR), "1 1 1,1 1 1,1 0 0");
    EXPECT_EQ(line_marker_and_text(grALL_PRIM_COLOUR), "1 0 0,1 0 0,1 0 0");
    EXPECT_EQ(line_marker_and_text(static_cast<grPrimColourType>(4)), "1 1 1,1 1 1,1 1 1");
    std::ostringstream os;
    element->set(gsColour(0, 0, 1), grTEXT_COLOUR);
    element->print(os);
    EXPECT_NE(os.str().find("m_prim_type is: grTEXT_COLOUR\nm_colour is: "), std::string::npos) << os.str();
    EXPECT_NE(os.str().find("m_use_manager_colour_in_xor is: 0\n}\n"), std::string::npos) << os.str();
}
