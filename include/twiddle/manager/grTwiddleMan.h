#pragma once

#include "coReceiver.h"
#include "grAction.h"
#include "grActionTrigger.h"
#include "grExport.h"
#include "grIdleAction.h"
#include "grTwidState.h"
#include "gwKeyEvent.h"

#include <memory>

class grToolDetail;
class grTwiddleTool;
class gwEvent;
class gwInput;

/// Turns the events of an input into runs of tools.
///
/// A press that pulls the trigger of an action makes its tool and starts it; the tool then gets every mouse, spaceball
/// and idle event, and its end with the next release of any key, or the next press. It stays current, and goes on
/// getting events, until the next press destroys it. There is never more than one tool. A tool that zooms with the
/// wheel begins, ends and goes within the one event; what its picture lacks is drawn in idle calls. Factories and tools
/// may let further events in; presses then start nothing.
///
/// A button that is released where it was pressed, no more than 4 pixels away and within half a second, whatever tool
/// the press has started, then pulls triggers of clicks: a tool that one of them starts is ended at once. The second of
/// two clicks within half a second pulls those of double clicks, and those of clicks where there is none.
class GR_EXPORT grTwiddleMan : public coReceiver
{
public:
    /// Listens to the events of input, which may be null: events then come through process_event alone.
    explicit grTwiddleMan(gwInput* input);
    /// Ends and destroys the current tool and deletes the actions. Not to be called from inside a tool or its hooks.
    ~grTwiddleMan() override;

    void process_event(const gwEvent& event);
    /// To be called while the application has nothing else to do, again and again as long as it answers non-zero. Goes
    /// to the current tool; without one it completes the picture of the last turn of the wheel, if that is left to do.
    grIdleAction idle();

    /// Ends the current tool's twiddle as if its mouse button had been released at (0, 0) of no window, destroys the
    /// tool, and completes the picture of the last turn of the wheel. From inside a call into the tool it only ends it,
    /// and from inside its end it does nothing.
    void stop_twiddling();
    /// Runs a tool from its start to its end at once, as if a key were pressed and released at the position of the
    /// event in its window. 0, with nothing run, from inside a call into a tool.
    int run(const grToolDetail& tool, const utString& args, const gwKeyEvent& event);

    /// Destroys the current tool unless it is active or this is called from inside a call into it.
    void delete_current_tool();

    /// Null when there is none.
    grTwiddleTool* current_tool() const { return the_current_tool.get(); }
    /// grTWID_NOT_STARTED when there is no tool.
    grTwidState current_tool_state() const;

    /// The actions, tried in this order; for editing. An action in the list is deleted by the manager, one taken out of
    /// it belongs to the caller.
    grActioncoDListPtr& actions() { return the_actions; }
    const grActioncoDListPtr& actions() const { return the_actions; }
    /// Deletes all actions.
    void remove_actions();

    gwInput* input() const { return the_input; }

    UT_DECLARE_TYPE(grTwiddleMan, coReceiver);

protected:
    grTwiddleMan(const grTwiddleMan&) = delete;
    grTwiddleMan& operator=(const grTwiddleMan&) = delete;

    /// The first action whose trigger the event pulls, bound or not; null when there is none.
    grAction* which_action(const gwKeyEvent& event) const;
    /// 1 for a press of the trigger's key: any key of the type for -1, whatever the modifiers; else the same key, with
    /// exactly the trigger's modifiers unless those are 0.
    int event_pulls_trigger(const gwKeyEvent& event, const grActionTrigger& trigger) const
    {
        if (event.transition() != gwPRESSED || event.key_type() != trigger.key_type())
            return 0;
        if (trigger.key_number() == -1)
            return 1;
        return event.key_number() == trigger.key_number() &&
               (!trigger.modifiers() || event.modifiers() == trigger.modifiers());
    }
    /// 1 when every action has a binding.
    int actions_are_bound() const;

private:
    class InCall;

    void input_event(void* sender, void* data);
    /// Each answers whether the event is used up.
    bool key_pressed(const gwKeyEvent& event);
    bool key_released(const gwKeyEvent& event);
    void finish_one_shot_tool(const gwEvent& event);
    void start_tool(const gwKeyEvent& event);
    bool start(const grToolDetail& tool, const utString& args, const gwKeyEvent& event);
    void follow_clicks(const gwEvent& event);
    void clicked(const gwKeyEvent& release);
    bool tool_claims(const gwKeyEvent& event);
    void end_twiddle(const gwKeyEvent& event);
    bool twiddling() const { return current_tool_state() == grTWID_TWIDDLING; }

    gwInput* the_input;
    grActioncoDListPtr the_actions;
    std::unique_ptr<grTwiddleTool> the_current_tool;
    int the_idle_calls_come = 0;
    // The press that may become a click, and the last one that did.
    gwKeyEvent the_press, the_click;
    double the_press_time = 0, the_click_time = 0; // seconds
    int the_press_stays = 0, the_was_clicked = 0;

    int the_in_call = 0;
    int the_in_end = 0;
};
