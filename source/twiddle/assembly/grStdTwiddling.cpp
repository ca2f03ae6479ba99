#include "grStdTwiddling.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "grExtraToolFactory.h"
#include "grStdToolFactory.h"
#include "grStdTwiddleHooks.h"
#include "grStdViewTwiddleTool.h"
#include "grStringConverter.h"
#include "grTranslationsChecker.h"
#include "grTwiddleMan.h"
#include "grUncovered.h"
#include "gwKeyEvent.h"
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
    the_extra_factory = std::make_unique<grExtraToolFactory>(the_hooks, db);
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
    const std::vector<grToolFactory*> known = factories();
    grTranslationsChecker checker({known.begin(), known.end()});
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

// In the order in which they are asked.
std::vector<grToolFactory*> grStdTwiddling::factories() const
{
    std::vector<grToolFactory*> factories{the_factory.get(), the_extra_factory.get()};
    if (the_apps_factory)
        factories.insert(factories.begin(), the_apps_factory);
    return factories;
}

int grStdTwiddling::run_tool(dgView& view, const utString& name, const utString& args)
{
    const std::vector<giBox2> boxes = view.renderer() ? gr_uncovered_boxes(view) : std::vector<giBox2>();
    if (boxes.empty())
        return 0;
    const giPoint2 middle = boxes.front().middle();
    gwKeyEvent event;
    event.initialise_key(gwMOUSE_BUTTON, 1, gwPRESSED, const_cast<gwWindow*>(view.renderer()->input_window()),
                         static_cast<int>(middle.x()), static_cast<int>(middle.y()));
    for (grToolFactory* factory : factories())
        if (const int tool = factory->identify_tool(name); tool > 0)
            return the_twiddle_man->run(grToolDetail(factory, tool), args, event);
    return 0;
}

bool grStdTwiddling::bind(grAction& action) const
{
    for (grToolFactory* factory : factories())
    {
        const int tool = factory->identify_tool(action.action_name());
        if (tool <= 0)
            continue;
        action.bind(grToolDetail(factory, tool));
        return true;
    }
    return false;
}
