#include "tsBands.h"

#include "grCanvas.h"
#include "grRubberBandGraphicalElement.h"
#include "grRubberBandStructure.h"

#include "dgSerr.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace
{
// Calls make once for each of the two kinds of item that are drawn in a view, made of 3 segments.
void for_view_items(tsBands& bands, const std::function<void(grRubberBandItem&)>& test)
{
    const dgRef<dgClientStructure> structure(new dgClientStructure);
    structure->add(tsSegments(3).get());
    const dgRef<grRubberBandItem> items[] = {
        new grRubberBandStructure(&bands.renderer, &bands.view, structure.get(), nullptr),
        new grRubberBandGraphicalElement(&bands.renderer, &bands.view, tsSegments(3).get(), nullptr)};
    for (const auto& item : items)
        test(*item);
}

void draw(grRubberBandItem& item, grRubberBandIt it = grDRAW_RUBBER_BAND_ITEM)
{
    grRubberBandManager::draw(&item, it);
}

void undraw(grRubberBandItem& item)
{
    draw(item, grUNDRAW_RUBBER_BAND_ITEM);
}

// Writes what it is told of into the window's log.
class RecordingItem : public grRubberBandGraphicalElement
{
public:
    RecordingItem(tsBands& bands)
        : grRubberBandGraphicalElement(&bands.renderer, &bands.view, tsSegments(3).get(), nullptr), the_bands(bands)
    {}
    void turn_off_hlhsr() override
    {
        note("hlhsr off");
        grRubberBandGraphicalElement::turn_off_hlhsr();
    }
    void turn_on_hlhsr() override
    {
        note(state() == grDRAWN_RUBBER_BAND_ITEM ? "hlhsr on, drawn" : "hlhsr on, undrawn");
        grRubberBandGraphicalElement::turn_on_hlhsr();
    }
    void before_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view) override
    {
        hook("before begin", it, xor_mode, renderer, view);
    }
    void after_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view) override
    {
        hook("after begin", it, xor_mode, renderer, view);
    }
    void before_end(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view) override
    {
        hook("before end", it, xor_mode, renderer, view);
    }
    void after_end(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view) override
    {
        hook("after end", it, xor_mode, renderer, view);
    }

private:
    void note(const std::string& text) { the_bands.main.record(text); }
    void hook(const std::string& name, grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view)
    {
        EXPECT_EQ(renderer, &the_bands.renderer);
        EXPECT_EQ(view, &the_bands.view);
        note(name + (it == grDRAW_RUBBER_BAND_ITEM ? ", draw" : ", undraw") + (xor_mode ? ", xor" : ""));
    }
    tsBands& the_bands;
};
}

TEST(grRubberBandItem, hooks_lie_around_the_brackets_of_the_view_and_the_state_changes_before_hlhsr_comes_back)
{
    tsBands bands;
    const dgRef<RecordingItem> item(new RecordingItem(bands));
    bands.main.clear_log();
    draw(*item);
    EXPECT_EQ(bands.main.log(), (tsLog{"hlhsr off", "before begin, draw, xor", "xor begin", "after begin, draw, xor",
                                       "xor draw lines 3 of 1", "before end, draw, xor", "xor end",
                                       "after end, draw, xor", "hlhsr on, drawn"}));
    bands.main.clear_log();
    undraw(*item);
    EXPECT_EQ(bands.main.log(), (tsLog{"hlhsr off", "before begin, undraw, xor", "xor begin",
                                       "after begin, undraw, xor", "xor draw lines 3 of 1", "before end, undraw, xor",
                                       "xor end", "after end, undraw, xor", "hlhsr on, undrawn"}));
}

TEST(grRubberBandItem, view_items_switch_the_hidden_surfaces_of_their_view)
{
    tsBands bands;
    bands.main.record_state(1);
    dgViewShadingContext& shading = bands.view.shading_context();
    const auto depth_tested = [&]
    {
        for (const std::string& line : bands.take_log())
            if (line.find("camera") != std::string::npos)
                return line.ends_with("1 0"); // depth test, depth cueing
        return false;
    };
    for_view_items(bands,
                   [&](grRubberBandItem& item)
                   {
                       draw(item);
                       EXPECT_FALSE(depth_tested());
                       EXPECT_EQ(shading.hlhsr_mode, dgHLHSR_ZBUFFER);
                       item.set_turn_off_hlhsr(0);
                       undraw(item);
                       EXPECT_TRUE(depth_tested());

                       item.set_turn_off_hlhsr(1);
                       shading.set_hlhsr_mode(dgHLHSR_OFF);
                       draw(item);
                       EXPECT_EQ(shading.hlhsr_mode, dgHLHSR_OFF) << "not switched on by switching it back";
                       shading.set_hlhsr_mode(dgHLHSR_ZBUFFER);
                   });
}

TEST(grRubberBandItem, callback_items_switch_the_hidden_surfaces_of_the_renderer_and_have_no_stencil)
{
    tsBands bands;
    static dgHLHSRMode mode;
    const dgRef<grRubberBandCallback> item(new grRubberBandCallback(
        &bands.renderer, [](grRubberBandItem* i, grRubberBandIt) { mode = i->renderer()->hlhsr_mode(); }, nullptr));
    draw(*item);
    EXPECT_EQ(mode, dgHLHSR_OFF);
    EXPECT_EQ(bands.renderer.hlhsr_mode(), dgHLHSR_ZBUFFER);
    EXPECT_EQ(bands.take_log(), tsLog());
    item->set_turn_off_hlhsr(0);
    undraw(*item);
    EXPECT_EQ(mode, dgHLHSR_ZBUFFER);
}

TEST(grRubberBandItem, states_recorded_by_others)
{
    tsBands bands;
    const dgRef<grRubberBandCallback> item(new grRubberBandCallback(&bands.renderer, nullptr, nullptr));
    item->set_draw_state(grDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_SELECT_DRIVER);
    EXPECT_EQ(item->state(), grDRAWN_RUBBER_BAND_ITEM);
    grRubberBandManager::add(item.get());
    grRubberBandManager::erased(&bands.renderer);
    item->set_draw_state(grUNDRAW_RUBBER_BAND_ITEM, grRUBBER_BAND_SELECT_DRIVER);
    EXPECT_EQ(item->state(), grTEMP_UNDRAWN_RUBBER_BAND_ITEM) << "only a drawn item becomes undrawn";
}

TEST(grRubberBandItem, is_counted_and_a_count_below_zero_is_reported)
{
    tsBands bands;
    const int before = grRubberBandItem::instance_count();
    static int code;
    code = 0;
    const dgSerrHandler handler = dgSerr_handler([](int reported) { code = reported; });
    auto* referenced = new grRubberBandCallback(&bands.renderer, nullptr, nullptr);
    auto* unreferenced = new grRubberBandCallback(&bands.renderer, nullptr, nullptr);
    EXPECT_EQ(grRubberBandItem::instance_count(), before + 2);
    referenced->reference();
    referenced->unreference();
    EXPECT_EQ(code, 0);
    unreferenced->unreference();
    EXPECT_EQ(code, 110);
    EXPECT_EQ(grRubberBandItem::instance_count(), before);
    dgSerr_handler(handler);
}

TEST(grRubberBandItem, structures_take_the_managers_colour_in_xor_mode_when_that_is_set)
{
    tsBands bands;
    bands.main.record_state(1);
    const dgRef<dgClientStructure> structure(new dgClientStructure);
    structure->add(tsSegments(3).get());
    const dgRef<grRubberBandItem> item(
        new grRubberBandStructure(&bands.renderer, &bands.view, structure.get(), nullptr));
    const auto line_state = [&]
    {
        std::string state;
        for (const std::string& line : bands.take_log())
            if (line.starts_with("xor state line "))
                state = line.substr(15, 7);
        return state;
    };
    grRubberBandManager::rubber_band_colour(gsColour(1, 0, 0));
    draw(*item);
    EXPECT_EQ(line_state(), "1 1 1 1");
    undraw(*item);
    grRubberBandManager::set_default_colour_in_xor_mode(1);
    bands.take_log();
    draw(*item);
    EXPECT_EQ(line_state(), "1 0 0 1");
    undraw(*item);
    grRubberBandManager::rubber_band_colour(gsColour(0, 1, 0));
    bands.take_log();
    draw(*item);
    EXPECT_EQ(line_state(), "0 1 0 1");
}
