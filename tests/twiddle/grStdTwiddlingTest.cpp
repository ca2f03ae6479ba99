#include "grStdTwiddling.h"

#include "grStdToolFactory.h"
#include "grStdTwiddleHooks.h"
#include "grTwiddleMan.h"
#include "grViewRendererFast.h"
#include "gwInput.h"
#include "gwResourceDB.h"
#include "tsRecordingTool.h"
#include "tsScene.h"

#include <gtest/gtest.h>

namespace
{
struct Binding
{
    gwKeyType type;
    int number;
    std::string name;
    const grToolFactory* factory;
    int tool;
    bool operator==(const Binding&) const = default;
};

void PrintTo(const Binding& binding, std::ostream* os)
{
    *os << binding.type << " " << binding.number << " : " << binding.name << " " << binding.tool;
}

std::vector<Binding> bindings(grStdTwiddling& twiddling)
{
    std::vector<Binding> result;
    for (const grAction* action : twiddling.twiddle_man()->actions())
        result.push_back({action->trigger().key_type(), action->trigger().key_number(), action->action_name().str(),
                          action->binding()->factory(), action->binding()->tool()});
    return result;
}

tsSetting<double> keep_minimum_framerate()
{
    return tsSetting<double>(grViewRendererFast::minimum_framerate(),
                             [](double rate) { grViewRendererFast::minimum_framerate(rate); });
}
}

TEST(grStdTwiddling, binds_spaceball_then_wheel_then_the_text_and_drops_what_no_factory_knows)
{
    gwInput input;
    gwResourceDB db;
    db.set_resource("translations",
                    "mouse_button 1 : trackball, qwerty_key 65 : teapot, <shift> mouse_button 2 : zoom");
    grStdTwiddling twiddling(&input, &db, nullptr, nullptr);
    const grToolFactory* std_factory = twiddling.factory();
    EXPECT_EQ(bindings(twiddling), (std::vector<Binding>{
                                       {gwSPACEBALL_BUTTON, 321, "spaceball", std_factory, 18},
                                       {gwSPACEBALL_BUTTON, 31, "reset", std_factory, 6},
                                       {gwMOUSE_WHEEL, 1, "mouse_wheel_zoom", std_factory, 19},
                                       {gwMOUSE_BUTTON, 1, "trackball", std_factory, 3},
                                       {gwMOUSE_BUTTON, 2, "zoom", std_factory, 1},
                                   }));
    EXPECT_EQ(twiddling.twiddle_man()->actions().last()->trigger().modifiers(), gwMODIFIER_SHIFT);

    // No such key: nothing is left, not even what the code adds.
    twiddling.change_translation_actions("other", &db);
    EXPECT_EQ(bindings(twiddling), std::vector<Binding>());
    db.set_resource("other", "");
    twiddling.change_translation_actions("other", &db);
    EXPECT_EQ(bindings(twiddling).size(), 3u);
}

TEST(grStdTwiddling, asks_the_application_s_factory_first)
{
    gwInput input;
    gwResourceDB db;
    db.set_resource("translations", "mouse_button 1 : pan");
    tsToolRecord record;
    tsRecordingFactory mine(record, "spaceball");
    grStdTwiddling twiddling(&input, &db, nullptr, &mine);
    EXPECT_EQ(twiddling.apps_factory(), &mine);
    const std::vector<Binding> bound = bindings(twiddling);
    ASSERT_EQ(bound.size(), 4u);
    EXPECT_EQ(bound[0], (Binding{gwSPACEBALL_BUTTON, 321, "spaceball", &mine, 7}));
    EXPECT_EQ(bound[3].factory, twiddling.factory()) << "its answer of -1 means unknown";

    input.post(gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwSPACEBALL_BUTTON, gwSPACEBALL_MOVED));
    EXPECT_EQ(record.take(), std::vector<std::string>{"start  in 1"});
}

TEST(grStdTwiddling, without_translations_no_event_starts_a_tool)
{
    gwInput input;
    const gwResourceDB empty;
    const gwResourceDB* const databases[] = {&empty, nullptr};
    for (const gwResourceDB* resources : databases)
    {
        grStdTwiddling twiddling(&input, resources, nullptr, nullptr);
        input.post(gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwMOUSE_WHEEL, 1, 1.0));
        input.post(gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwMOUSE_BUTTON, 1));
        EXPECT_EQ(twiddling.twiddle_man()->current_tool(), nullptr);
        EXPECT_EQ(bindings(twiddling), std::vector<Binding>());
    }
}

TEST(grStdTwiddling, frame_rate_is_read_only_for_hooks_of_its_own)
{
    const auto guard = keep_minimum_framerate();
    grViewRendererFast::minimum_framerate(2.0);
    gwInput input;
    gwResourceDB db;
    db.set_resource("framerate", "12.5");
    db.set_resource("disable_refresher_fast", "true");
    grStdTwiddleHooks hooks(&db);
    const grStdTwiddling with_hooks(&input, &db, &hooks, nullptr);
    EXPECT_EQ(with_hooks.hooks(), &hooks);
    EXPECT_EQ(hooks.get_timeout_twiddling_flag(), 0);
    EXPECT_EQ(grViewRendererFast::minimum_framerate(), 2.0);
    hooks.use_refresher_fast(1);
    EXPECT_EQ(hooks.use_refresher_fast(), 0);

    const grStdTwiddling own_hooks(&input, &db, nullptr, nullptr);
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling_flag(), 1);
    EXPECT_EQ(grViewRendererFast::minimum_framerate(), 12.5);
    own_hooks.hooks()->disable_timeout_twiddling();
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling_flag(), 0);
    EXPECT_EQ(own_hooks.hooks()->get_timeout_twiddling(), 12.5) << "the rate stays where it was";
    own_hooks.hooks()->use_refresher_fast(1);
    EXPECT_EQ(own_hooks.hooks()->use_refresher_fast(), 1) << "hooks of its own get no resources";

    for (const char* rate : {"0", "-3", "fast"})
    {
        db.set_resource("framerate", rate);
        EXPECT_EQ(grStdTwiddling(&input, &db, nullptr, nullptr).hooks()->get_timeout_twiddling_flag(), 0) << rate;
    }
}
