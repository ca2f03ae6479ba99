#pragma once

#include "grAction.h"
#include "grExport.h"
#include "utString.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class dgView;
class grExtraToolFactory;
class grStdToolFactory;
class grStdTwiddleHooks;
class grToolFactory;
class grTwiddleMan;
class gwInput;
class gwResourceDB;

/// Twiddling ready to use: a manager on an input, hooks, and the standard tools, with the actions of a resource
/// database.
class GR_EXPORT grStdTwiddling
{
public:
    /// Nothing is taken over, and everything given must outlive this object. Without hooks, default ones are made, and
    /// a "framerate" above 0 in db lets them time twiddles out. apps_factory is asked for tools before the standard
    /// factory. db, apps_factory and hooks may be null; the actions are read from "translations".
    grStdTwiddling(gwInput* input, const gwResourceDB* db, grStdTwiddleHooks* hooks, grToolFactory* apps_factory);
    /// Not to be called from inside a tool or its hooks.
    ~grStdTwiddling();

    /// Replaces all actions by those of another resource; there are none when db has no such key or is null.
    void change_translation_actions(utString key, const gwResourceDB* db);

    /// What was wrong with the text that the actions were read from last, with its place: "line 1, column 28: there is
    /// no tool 'pam'". Empty when nothing was. What stands before the fault is bound.
    const std::string& fault() const { return the_fault; }

    /// Is told of such faults as they are found. Without one they are printed on standard error. One for the process.
    static void fault_callback(std::function<void(const std::string& fault)> callback);

    /// Runs a tool on a view from its start to its end, as if its key were pressed and released over the view: for
    /// buttons and menus. The name is one that actions may have; args are what may stand in parentheses behind it. 0
    /// when no factory knows the name, a tool is at work, or no pixel of the view is to be seen.
    int run_tool(dgView& view, const utString& name, const utString& args = utString());

    gwInput* input() const { return the_input; }
    grStdTwiddleHooks* hooks() const { return the_hooks; }
    /// Null when the application has none.
    grToolFactory* apps_factory() const { return the_apps_factory; }
    grStdToolFactory* factory() const { return the_factory.get(); }
    grTwiddleMan* twiddle_man() const { return the_twiddle_man.get(); }

protected:
    grStdTwiddling(const grStdTwiddling&) = delete;
    grStdTwiddling& operator=(const grStdTwiddling&) = delete;

    void setup_actions(utString key, const gwResourceDB* db);
    /// Append the actions that no resource names.
    void add_mouse_wheel_actions(grActioncoDListPtr& actions);
    void add_spaceball_actions(grActioncoDListPtr& actions);

private:
    std::vector<grToolFactory*> factories() const;
    bool bind(grAction& action) const;
    void report_fault(const utString& key, const utString& text);

    gwInput* the_input;
    std::unique_ptr<grStdTwiddleHooks> the_own_hooks; // null when the application gave its own
    grStdTwiddleHooks* the_hooks;
    grToolFactory* the_apps_factory;
    // The manager goes first: its tool still uses the factory's database and the hooks.
    std::unique_ptr<grStdToolFactory> the_factory;
    std::unique_ptr<grExtraToolFactory> the_extra_factory;
    std::unique_ptr<grTwiddleMan> the_twiddle_man;
    std::string the_fault;
};
