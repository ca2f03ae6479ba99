#include "dgS.h"
#include "grRubberBandItem.h"
#include "grRubberBandManager.h"
#include "tsScript.h"
#include "tsStage.h"

#include <gtest/gtest.h>

#include <stdexcept>

// Plays the scripts of this folder once for every call that the library makes into the application and everything that
// may be done there: an object is destroyed, edited or replaced, another event arrives. Afterwards all must be in order
// again. Under the address checker (preset asan) nothing is left out, otherwise every 7th case is played.
namespace
{
#ifdef __SANITIZE_ADDRESS__
constexpr int every = 1;
#else
constexpr int every = 7;
#endif

const char* const interruptions[] = {
    "close a",       "close b",       "close c",    "drop a",       "drop b",       "unplug a",       "root a none",
    "root a 4",      "clear a",       "grow a 2",   "remove_view a", "stop",        "delete_tool",    "press 2 5 5",
    "press 1 20 20", "release",       "move 30 40", "idle",          "wheel 20 20 1", "unbind",       "bind pan",
    "multi 1",       "clear_part",    "part a",     "release_item x", "release_item y", "clear_list", "temp_undraw",
    "update",        "erased",        "undraw x",   "changed a",     "turn a 1 0 1 0", "spinning 0",   "cut a 0",
};

// Plays a script as far as it goes.
void play(tsStage& stage, const tsScript& script)
{
    for (const tsStep& step : script.steps)
        for (const std::string& command : ts_parts(step.commands, ";"))
            try
            {
                stage.run(command);
            }
            catch (const std::runtime_error&)
            {
                // What it works on has gone.
            }
}

class Sweep : public testing::TestWithParam<tsScript>
{};
}

TEST_P(Sweep, leaves_everything_in_order)
{
    const tsScript& script = GetParam();
    int n_calls = 0;
    {
        tsStage stage;
        play(stage, script);
        n_calls = stage.n_calls();
    }
    ASSERT_GT(n_calls, 5);
    int number = 0;
    for (int call = 0; call < n_calls; ++call)
        for (const char* interruption : interruptions)
        {
            if (++number % every != 0)
                continue;
            {
                tsStage stage;
                stage.interrupt(call, interruption);
                play(stage, script);
                const std::string where =
                    script.name + ": " + interruption + " in call " + std::to_string(call) + ", " + stage.name_of_call(call);
                ASSERT_EQ(stage.complaint(), "") << where;
                // The next drag works.
                stage.run("window 50 50; pointer " + std::to_string(stage.n_windows() + 1) + "; suspend 0");
                stage.run("view " + std::to_string(stage.n_windows()) + "; multi 0; translations mouse_button 1 : pan");
                stage.run("stop");
                stage.take();
                stage.run("press 1 10 10; move 20 10; release 1 20 10; target");
                const std::string name = stage.view_names().back();
                ASSERT_EQ(stage.take().back(), name) << where;
                stage.run("stop");
            }
            ASSERT_EQ(dgS::views().count(), 0) << interruption << " in call " << call;
            ASSERT_EQ(grRubberBandItem::instance_count(), 0) << interruption << " in call " << call;
            ASSERT_EQ(grRubberBandManager::empty(), 1) << interruption << " in call " << call;
        }
}

void PrintTo(const tsScript& script, std::ostream* os);

INSTANTIATE_TEST_SUITE_P(, Sweep, testing::ValuesIn(ts_read_scripts(TS_SCRIPTS)),
                         [](const auto& tested) { return tested.param.name; });
