#include "grRubberBandCallback.h"
#include "grRubberBandGraphicalElement.h"
#include "grRubberBandManager.h"
#include "tsScene.h"

#include "dgSerr.h"

#include <gtest/gtest.h>

namespace
{
// Writes what it is told of into the window's log.
class RecordingItem : public grRubberBandGraphicalElement
{
public:
    explicit RecordingItem(tsScene& scene)
        : grRubberBandGraphicalElement(&scene.renderer(), scene.view(0), tsLine(3)->element(0)->copy(), nullptr),
          the_scene(scene)
    {}
    void turn_off_hlhsr() override { note("hlhsr off"); }
    void turn_on_hlhsr() override
    {
        note(state() == grDRAWN_RUBBER_BAND_ITEM ? "hlhsr on, drawn" : "hlhsr on, undrawn");
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
    void note(const std::string& text) { the_scene.window().record(text); }
    void hook(const std::string& name, grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view)
    {
        EXPECT_EQ(renderer, &the_scene.renderer());
        EXPECT_EQ(view, the_scene.view(0));
        note(name + (it == grDRAW_RUBBER_BAND_ITEM ? ", draw" : ", undraw") + (xor_mode ? ", xor" : ""));
    }
    tsScene& the_scene;
};
}

TEST(grRubberBandItem, hooks_lie_around_the_brackets_of_the_view_and_the_state_changes_before_hlhsr_comes_back)
{
    using Log = std::vector<std::string>;
    tsScene scene;
    scene.add_view();
    const grRubberBandManager manager;
    const dgRef<RecordingItem> item(new RecordingItem(scene));
    for (const auto& [it, name, state] : {std::tuple(grDRAW_RUBBER_BAND_ITEM, ", draw, xor", ", drawn"),
                                          {grUNDRAW_RUBBER_BAND_ITEM, ", undraw, xor", ", undrawn"}})
    {
        scene.window().clear_log();
        grRubberBandManager::draw(item.get(), it);
        const std::string n = name;
        EXPECT_EQ(scene.window().log(),
                  (Log{"hlhsr off", "before begin" + n, "xor begin", "after begin" + n, "xor draw lines 3 of 1",
                       "before end" + n, "xor end", "after end" + n, std::string("hlhsr on") + state}));
    }
    grRubberBandManager::to_be_deleted(&scene.renderer());
}

TEST(grRubberBandItem, is_counted_and_a_count_below_zero_is_reported)
{
    tsScene scene;
    const int before = grRubberBandItem::instance_count();
    static int code;
    code = 0;
    const dgSerrHandler handler = dgSerr_handler([](int reported) { code = reported; });
    auto* referenced = new grRubberBandCallback(&scene.renderer(), nullptr, nullptr);
    auto* unreferenced = new grRubberBandCallback(&scene.renderer(), nullptr, nullptr);
    EXPECT_EQ(grRubberBandItem::instance_count(), before + 2);
    referenced->reference();
    referenced->unreference();
    EXPECT_EQ(code, 0);
    unreferenced->unreference();
    EXPECT_EQ(code, 110);
    EXPECT_EQ(grRubberBandItem::instance_count(), before);
    dgSerr_handler(handler);
}
