#include "vwFonts.h"

#include "vwFrameTimes.h"
#include "vwModel.h"
#include "vwOptions.h"
#include "vwStatsBars.h"

#include "dgCamera.h"
#include "dgRenderer.h"
#include "dgStructure.h"
#include "dgText.h"
#include "dgTextFont.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
const std::string tetrahedron = VW_TEST_DATA "/tetrahedron.tarn";

vwOptions with_htmldoc_fonts()
{
    vwOptions options;
    options.font_path = options.metrics_path = "/usr/share/htmldoc/fonts"; // of the package htmldoc-common
    return options;
}

const dgText* last_text(const vwModel& model)
{
    dgStructure& root = model.root();
    return root.nelements() ? dgText::ut_dynamic_cast(root.element(root.nelements() - 1)) : nullptr;
}
}

TEST(vwFonts, families_are_listed_with_kind_and_styles)
{
    std::ostringstream list;
    std::string error;
    ASSERT_EQ(vw_list_fonts(with_htmldoc_fonts(), list, error), 1) << error;
    EXPECT_NE(list.str().find("adobe_pfa  regular bold italic bold-italic  Helvetica\n"), std::string::npos);
    EXPECT_NE(list.str().find("adobe_pfa  regular ---- ------ -----------  Symbol\n"), std::string::npos);
    EXPECT_NE(list.str().find("truetype   regular bold italic bold-italic  Liberation Serif\n"), std::string::npos);
    EXPECT_NE(list.str().find(": 4 known Type 1 families, "), std::string::npos) << list.str();
}

TEST(vwFonts, a_bad_font_list_is_named_with_its_line)
{
    vwOptions options = with_htmldoc_fonts();
    const tsFolder folder;
    options.font_list = folder.write("x.fonts", "# fine\nadobe_pfa, Courier\n");
    std::ostringstream list;
    std::string error;
    EXPECT_EQ(vw_list_fonts(options, list, error), 0);
    EXPECT_NE(error.find("x.fonts: line 2"), std::string::npos) << error;
    EXPECT_EQ(list.str(), "");
    options.font_list = "/nowhere/x.fonts";
    EXPECT_EQ(vw_list_fonts(options, list, error), 0);
    EXPECT_NE(error.find("/nowhere/x.fonts: there is no such file"), std::string::npos) << error;
}

TEST(vwFonts, text_lies_in_front_of_the_model_and_belongs_to_its_box)
{
    dgTraceWindow window(100, 100);
    dgRenderer renderer(&window, &window);
    vwModel model;
    std::string error;
    ASSERT_EQ(model.add_file(tetrahedron, error), 1) << error;
    const giBox3 before = model.root().bounding_box();
    vwOptions options = with_htmldoc_fonts();
    options.text = "words";
    options.font = "Times";
    const int slot = vw_install_font(options, renderer, error);
    ASSERT_GE(slot, 0) << error;
    vw_lay_text(options, renderer, slot, dgCamera(), model.root());
    ASSERT_NE(renderer.get_text_font(0), nullptr);
    const dgText* text = last_text(model);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(), "words");
    EXPECT_LT(text->bounding_box().high().y(), before.low().y());
    EXPECT_LE(model.root().bounding_box().low().y(), text->bounding_box().low().y());
}

TEST(vwFonts, text_alone_faces_the_camera)
{
    dgTraceWindow window(100, 100);
    dgRenderer renderer(&window, &window);
    vwModel model;
    std::string error;
    vwOptions options = with_htmldoc_fonts();
    options.text = "words";
    dgCamera camera;
    camera.orientation(giPoint3(), giVector3(0, 1, 0), giVector3(0, 0, 1)); // looking along y
    const int slot = vw_install_font(options, renderer, error);
    ASSERT_GE(slot, 0) << error;
    vw_lay_text(options, renderer, slot, camera, model.root());
    const giBox3 box = model.root().bounding_box();
    EXPECT_NEAR(box.high().y() - box.low().y(), 0, 1e-9);
    EXPECT_NEAR(box.high().z() - box.low().z(), 1, 1e-9) << "one line of height 1";
    EXPECT_GT(box.high().x() - box.low().x(), 1);
}

TEST(vwFonts, a_font_that_is_not_there_is_named_and_installs_nothing)
{
    dgTraceWindow window(100, 100);
    dgRenderer renderer(&window, &window);
    vwOptions options = with_htmldoc_fonts();
    options.font = "times"; // upper and lower case count
    std::string error;
    EXPECT_EQ(vw_install_font(options, renderer, error), -1);
    EXPECT_NE(error.find("no font family 'times'"), std::string::npos) << error;
    EXPECT_EQ(renderer.get_text_font(0), nullptr);
}

TEST(vwStatsBars, writes_the_times_with_a_font_and_draws_bars_without)
{
    dgTraceWindow window(400, 300);
    dgRenderer renderer(&window, &window);
    dgView view(&renderer);
    vwFrameTimes times;
    times.add({0, 0.05});
    vwStatsBars bars(0.1);
    bars.draw(view, times);
    const auto without = window.log();
    window.clear_log();

    std::string error;
    bars.font(vw_install_font(with_htmldoc_fonts(), renderer, error));
    bars.draw(view, times);
    ASSERT_EQ(window.log().size(), without.size() + 1) << error;
    EXPECT_EQ(vw_frame_text(times.summary()), "50.0 ms a frame, 95 % below 50.0 ms, 20 frames/s");
}
