// Finding the action that a key press pulls among 100 bindings, beside a bare loop over the same triggers.
#include "grTwiddleMan.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{
constexpr int n_bindings = 100, rounds = 200, repetitions = 41;

using Clock = std::chrono::steady_clock;

class Manager : public grTwiddleMan
{
public:
    using grTwiddleMan::grTwiddleMan;
    using grTwiddleMan::which_action;
};

struct BareTrigger
{
    int key_type;
    int key_number;
    int modifiers;
};

int bare_match(const std::vector<BareTrigger>& triggers, const gwKeyEvent& event)
{
    for (std::size_t i = 0; i < triggers.size(); ++i)
        if (event.transition() == gwPRESSED && triggers[i].key_type == event.key_type() &&
            (triggers[i].key_number == -1 || (triggers[i].key_number == event.key_number() &&
                                              (!triggers[i].modifiers || triggers[i].modifiers == event.modifiers()))))
            return static_cast<int>(i);
    return -1;
}

template <class Match>
double nanoseconds_per_event(const std::vector<gwKeyEvent>& events, Match match)
{
    double best = 1e30;
    for (int repetition = 0; repetition < repetitions; ++repetition)
    {
        const auto start = Clock::now();
        for (int round = 0; round < rounds; ++round)
            for (const gwKeyEvent& event : events)
                match(event);
        best = std::min(best, std::chrono::duration<double, std::nano>(Clock::now() - start).count() / rounds /
                                  static_cast<double>(events.size()));
    }
    return best;
}
}

int main()
{
    Manager man(nullptr);
    std::vector<BareTrigger> triggers;
    std::vector<gwKeyEvent> events; // one for each binding, so that the walk is half the list on average
    for (int i = 0; i < n_bindings; ++i)
    {
        // Keys in groups of four that differ in the modifiers alone, as applications bind them.
        const gwKeyType type = i % 2 ? gwQWERTY_KEY : gwFUNCTION_KEY;
        const int number = 1 + i / 8, modifiers = 1 + i / 2 % 4;
        man.actions().add_last(new grAction(grActionTrigger(type, number, modifiers, ""), "trackball"));
        triggers.push_back({type, number, modifiers});
        events.emplace_back(nullptr, 0, 0, modifiers, gwPRESSED, type, number);
    }
    const std::vector<gwKeyEvent> no_match(n_bindings, gwKeyEvent(nullptr, 0, 0, 0, gwPRESSED, gwQWERTY_KEY, 999));

    for (int i = 0; i < n_bindings; ++i)
        if (man.which_action(events[static_cast<std::size_t>(i)]) != man.actions()[i] ||
            bare_match(triggers, events[static_cast<std::size_t>(i)]) != i)
        {
            std::fprintf(stderr, "bench_events: binding %d is not found\n", i);
            return EXIT_FAILURE;
        }

    volatile const void* found = nullptr;
    volatile int index = 0;
    const auto report = [&](const char* name, const std::vector<gwKeyEvent>& some)
    {
        const double bare = nanoseconds_per_event(some, [&](const gwKeyEvent& e) { index = bare_match(triggers, e); });
        const double through = nanoseconds_per_event(some, [&](const gwKeyEvent& e) { found = man.which_action(e); });
        const double whole = nanoseconds_per_event(some, [&](const gwKeyEvent& e) { man.process_event(e); });
        std::printf("%s: bare loop %.1f ns, match %.1f ns (%.2f times), whole event %.1f ns\n", name, bare, through,
                    through / bare, whole);
    };
    std::printf("%d bindings (goal: a match in under 200 ns)\n", n_bindings);
    report("each binding in turn", events);
    report("a key that is not bound", no_match);
    return EXIT_SUCCESS;
}
