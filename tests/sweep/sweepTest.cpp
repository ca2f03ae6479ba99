#include "dgS.h"
#include "grRubberBandItem.h"
#include "grRubberBandManager.h"
#include "tsScript.h"
#include "tsStage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

// Plays the scripts of this folder once for every call that the library makes into the application and everything that
// may be done there: an object is destroyed, edited or replaced, another event arrives. Afterwards all must be in order
// again. GR_SWEEP_EVERY=1 plays all of these cases; by default it is an even sample of them, a larger one under the
// address checker (preset asan), which sees most.
namespace
{
int every()
{
#ifdef __SANITIZE_ADDRESS__
    constexpr int by_default = 29;
#else
    constexpr int by_default = 97;
#endif
    const char* asked = std::getenv("GR_SWEEP_EVERY");
    return asked ? std::max(std::atoi(asked), 1) : by_default;
}

const char* const interruptions =
    "cancel_view a; close a | cancel_view b; close b | close c | drop a | drop b | unplug a | root a none | "
    "root a 4 | clear a | grow a 2 | remove_view a | stop | delete_tool | press 2 5 5 | press 1 20 20 | "
    "release | move 30 40 | idle | wheel 20 20 1 | unbind | bind pan | multi 1 | clear_part | part a | "
    "release_item x | release_item y | clear_list | temp_undraw | update | erased | undraw x | changed a | "
    "turn a 1 0 1 0 | spinning 0 | cut a 0";

// An element may edit what it is drawn in, but must not take the view or its root away.
bool is_forbidden(const std::string& call, const std::string& interruption)
{
    if (!call.starts_with("element ") || interruption.find(call.substr(7)) == std::string::npos)
        return false;
    const char* const changes[] = {"cancel_view", "unplug", "remove_view", "root"};
    return std::any_of(std::begin(changes), std::end(changes),
                       [&](const char* text) { return interruption.starts_with(text); });
}

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
    std::vector<std::string> calls;
    {
        tsStage stage;
        play(stage, script);
        for (int i = 0; i < stage.n_calls(); ++i)
            calls.push_back(stage.name_of_call(i));
    }
    ASSERT_GT(calls.size(), 5u);
    const int step = every();
    int number = 0;
    for (int call = 0; call < static_cast<int>(calls.size()); ++call)
        for (const std::string& interruption : ts_parts(interruptions, "|"))
        {
            if (++number % step != 0 || is_forbidden(calls[static_cast<std::size_t>(call)], interruption))
                continue;
            {
                tsStage stage;
                stage.interrupt(call, interruption);
                play(stage, script);
                const std::string where = script.name + ": " + interruption + " in call " + std::to_string(call) +
                                          ", " + stage.name_of_call(call);
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
