#include "grStdTwiddling.h"

#include "grStdToolFactory.h"
#include "grStdTwiddleHooks.h"
#include "grStdViewTwiddleTool.h"
#include "grStringConverter.h"
#include "grTranslationsChecker.h"
#include "grTwiddleMan.h"
#include "gwResourceDB.h"
#include "gwTypes.h"

#include <cstdio>
#include <utility>

namespace
{
// Never destroyed: assemblies may live in static objects.
std::function<void(const std::string&)>& the_fault_callback()
{
    static auto* const callback = new std::function<void(const std::string&)>;
    return *callback;
}
}

grStdTwiddling::grStdTwiddling(gwInput* input, const gwResourceDB* db, grStdTwiddleHooks* hooks,
                               grToolFactory* apps_factory)
    : the_input(input), the_hooks(hooks), the_apps_factory(apps_factory)
{
    if (!the_hooks)
    {
        the_own_hooks = std::make_unique<grStdTwiddleHooks>();
        the_hooks = the_own_hooks.get();
        utString text;
        double framerate = -1.0;
        if (db && db->get_resource("framerate", text))
            grStringConverter::to_double(text, framerate);
        if (framerate > 0)
            the_hooks->enable_timeout_twiddling(framerate);
    }
    grStdViewTwiddleTool::initialise_cache(db);
    the_factory = std::make_unique<grStdToolFactory>(the_hooks, db);
    the_twiddle_man = std::make_unique<grTwiddleMan>(input);
    if (db)
        setup_actions("translations", db);
}

grStdTwiddling::~grStdTwiddling() = default;

void grStdTwiddling::change_translation_actions(utString key, const gwResourceDB* db)
{
    setup_actions(key, db);
}

void grStdTwiddling::setup_actions(utString key, const gwResourceDB* db)
{
    the_twiddle_man->remove_actions();
    the_fault.clear();
    utString text;
    if (!db || !db->get_resource(key, text))
        return;

    grActioncoDListPtr& actions = the_twiddle_man->actions();
    add_spaceball_actions(actions);
    add_mouse_wheel_actions(actions);
    // What stands before a mistake in the text still counts.
    grStringConverter::to_actions(text, actions);
    for (auto it = actions.it(); it; ++it)
        if (!bind(*it()))
        {
            delete it();
            it.remove();
        }
    report_fault(key, text);
}

void grStdTwiddling::report_fault(const utString& key, const utString& text)
{
    grTranslationsChecker checker({the_apps_factory, the_factory.get()});
    if (checker.check(text))
        return;
    the_fault = "line " + std::to_string(checker.line()) + ", column " + std::to_string(checker.column()) + ": " +
                checker.complaint();
    if (the_fault_callback())
        the_fault_callback()(the_fault);
    else
        std::fprintf(stderr, "gr: %s: %s\n", key.str().c_str(), the_fault.c_str());
}

void grStdTwiddling::fault_callback(std::function<void(const std::string&)> callback)
{
    the_fault_callback() = std::move(callback);
}

void grStdTwiddling::add_mouse_wheel_actions(grActioncoDListPtr& actions)
{
    actions.add_last(new grAction(grActionTrigger(gwMOUSE_WHEEL, 1, 0, ""), "mouse_wheel_zoom"));
}

void grStdTwiddling::add_spaceball_actions(grActioncoDListPtr& actions)
{
    actions.add_last(new grAction(grActionTrigger(gwSPACEBALL_BUTTON, gwSPACEBALL_MOVED, 0, ""), "spaceball"));
    actions.add_last(new grAction(grActionTrigger(gwSPACEBALL_BUTTON, gwSPACEBALL_RESET, 0, ""), "reset"));
}

bool grStdTwiddling::bind(grAction& action) const
{
    for (grToolFactory* factory : {the_apps_factory, static_cast<grToolFactory*>(the_factory.get())})
    {
        const int tool = factory ? factory->identify_tool(action.action_name()) : 0;
        if (tool <= 0)
            continue;
        action.bind(grToolDetail(factory, tool));
        return true;
    }
    return false;
}
