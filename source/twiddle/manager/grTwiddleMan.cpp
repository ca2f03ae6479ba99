#include "grTwiddleMan.h"

#include "grToolDetail.h"
#include "grToolFactory.h"
#include "grTwiddleTool.h"
#include "grWheelPictureRegistry.h"
#include "grWheelToolRegistry.h"
#include "gwInput.h"
#include "gwMouseEvent.h"
#include "gwSpaceballEvent.h"
#include "utTypeID.h"

#include "apHighResTime.h"

#include <cmath>
#include <utility>

// Marks the manager as inside a call into the current tool, or inside its end. Calls nest, as when a tool stops its own
// twiddle, so the mark is put back as it was: clearing it would let the inner call delete the tool under the outer one.
class grTwiddleMan::InCall
{
public:
    explicit InCall(int& flag) : the_flag(flag), the_outer(std::exchange(flag, 1)) {}
    ~InCall() { the_flag = the_outer; }
    InCall(const InCall&) = delete;
    InCall& operator=(const InCall&) = delete;

private:
    int& the_flag;
    int the_outer;
};

namespace
{
constexpr double click_seconds = 0.5;
constexpr int click_pixels = 4;

bool near(const gwPositionalEvent& event, const gwPositionalEvent& other)
{
    return event.window() == other.window() && std::abs(event.x() - other.x()) <= click_pixels &&
           std::abs(event.y() - other.y()) <= click_pixels;
}

gwKeyEvent key_event(const gwKeyEvent& at, gwKeyType type, gwTransition transition)
{
    gwKeyEvent event;
    event.initialise_key(type, at.key_number(), transition, at.window(), at.x(), at.y(), at.modifiers());
    return event;
}

gwKeyEvent synthetic_release()
{
    gwKeyEvent event;
    event.initialise_key(gwMOUSE_BUTTON, 1, gwRELEASED);
    return event;
}
}

UT_DEFINE_TYPE(grTwiddleMan, coReceiver);

grTwiddleMan::grTwiddleMan(gwInput* input) : the_input(input)
{
    if (input)
        input->call_list().add(gwCR_event, coCallFunc::member<&grTwiddleMan::input_event>(this));
}

grTwiddleMan::~grTwiddleMan()
{
    stop_twiddling();
    remove_actions();
}

void grTwiddleMan::process_event(const gwEvent& event)
{
    if (const gwMouseEvent* mouse = gwMouseEvent::ut_dynamic_cast(&event))
    {
        if (the_current_tool)
        {
            const InCall in_call(the_in_call);
            the_current_tool->base_mouse_event(*mouse);
        }
    }
    else if (const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event))
    {
        if (key->transition() == gwPRESSED ? key_pressed(*key) : key_released(*key))
            return follow_clicks(event);
    }
    else if (const gwSpaceballEvent* spaceball = gwSpaceballEvent::ut_dynamic_cast(&event))
    {
        if (the_current_tool)
        {
            const InCall in_call(the_in_call);
            the_current_tool->base_spaceball_event(*spaceball);
        }
    }
    finish_one_shot_tool(event);
    follow_clicks(event);
}

grIdleAction grTwiddleMan::idle()
{
    the_idle_calls_come = 1;
    if (the_in_call && !the_current_tool)
        return grIDLE_DONE;
    const InCall in_call(the_in_call);
    return the_current_tool ? the_current_tool->base_idle_event() : gr_complete_wheel_picture();
}

void grTwiddleMan::stop_twiddling()
{
    end_twiddle(synthetic_release());
    delete_current_tool();
    if (!the_in_call)
    {
        const InCall in_call(the_in_call);
        gr_finish_wheel_picture();
    }
}

int grTwiddleMan::run(const grToolDetail& tool, const utString& args, const gwKeyEvent& event)
{
    if (the_in_call)
        return 0;
    stop_twiddling();
    if (the_current_tool || !start(tool, args, key_event(event, event.key_type(), gwPRESSED)))
        return 0;
    end_twiddle(key_event(event, event.key_type(), gwRELEASED));
    delete_current_tool();
    return 1;
}

void grTwiddleMan::delete_current_tool()
{
    if (!the_current_tool || twiddling() || the_in_call)
        return;
    {
        // The tool may call back: it must neither be destroyed twice nor replaced.
        const InCall in_call(the_in_call);
        the_current_tool->base_destruction_twiddle();
    }
    the_current_tool.reset();
}

grTwidState grTwiddleMan::current_tool_state() const
{
    return the_current_tool ? the_current_tool->state() : grTWID_NOT_STARTED;
}

void grTwiddleMan::remove_actions()
{
    for (grAction* action : the_actions)
        delete action;
    the_actions.clear();
}

grAction* grTwiddleMan::which_action(const gwKeyEvent& event) const
{
    for (grAction* action : the_actions)
        if (event_pulls_trigger(event, action->trigger()))
            return action;
    return nullptr;
}

int grTwiddleMan::actions_are_bound() const
{
    for (const grAction* action : the_actions)
        if (!action->binding())
            return 0;
    return 1;
}

void grTwiddleMan::input_event(void*, void* data)
{
    process_event(gwInput::event(data));
}

bool grTwiddleMan::key_pressed(const gwKeyEvent& event)
{
    if (twiddling())
    {
        if (event.key_type() == gwMOUSE_WHEEL || tool_claims(event))
            return true;
        end_twiddle(event);
    }
    delete_current_tool();
    start_tool(event);
    return false;
}

bool grTwiddleMan::key_released(const gwKeyEvent& event)
{
    // Any release ends the twiddle, whichever key started it.
    if (!twiddling())
        return false;
    if (tool_claims(event))
        return true;
    end_twiddle(event);
    return false;
}

void grTwiddleMan::finish_one_shot_tool(const gwEvent& event)
{
    if (!the_current_tool || !the_current_tool->ut_is_kind_of(gr_mouse_wheel_zoom_tool_type()))
        return;
    if (twiddling())
    {
        const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event);
        end_twiddle(key ? *key : synthetic_release());
    }
    delete_current_tool();
}

void grTwiddleMan::start_tool(const gwKeyEvent& event)
{
    // A press that came from inside a call leaves the tool in place, which may be under way from its factory: there is
    // never a second one.
    if (the_current_tool || the_in_call)
        return;
    // The first action that matches decides: when it is not bound, nothing starts.
    const grAction* action = which_action(event);
    if (!action || !action->binding())
        return;
    // The factory may change the actions.
    const utString args = action->trigger().args();
    start(grToolDetail(utCopy, *action->binding()), args, event);
}

bool grTwiddleMan::start(const grToolDetail& tool, const utString& args, const gwKeyEvent& event)
{
    const InCall in_call(the_in_call);
    the_current_tool.reset(tool.factory()->create_tool(tool.tool(), args));
    if (!the_current_tool)
        return false;
    if (the_current_tool->ut_is_kind_of(gr_mouse_wheel_zoom_tool_type()))
        gr_before_wheel_notch(the_idle_calls_come);
    else
        gr_finish_wheel_picture();
    the_current_tool->base_start_twiddle(event);
    return true;
}

void grTwiddleMan::follow_clicks(const gwEvent& event)
{
    const gwPositionalEvent* positional = gwPositionalEvent::ut_dynamic_cast(&event);
    if (!positional)
        return;
    if (the_press_stays && !near(*positional, the_press))
        the_press_stays = 0;
    const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&event);
    if (!key)
        return;
    const double now = apHighResTime::time();
    if (key->transition() == gwPRESSED)
    {
        // Any other key in between makes it something else.
        the_press_stays = key->key_type() == gwMOUSE_BUTTON;
        the_press = *key;
        the_press_time = now;
    }
    else if (key->key_type() == gwMOUSE_BUTTON && the_press_stays && key->key_number() == the_press.key_number())
    {
        the_press_stays = 0;
        if (now - the_press_time <= click_seconds)
            clicked(*key);
    }
}

void grTwiddleMan::clicked(const gwKeyEvent& release)
{
    const double now = apHighResTime::time();
    const bool second = the_was_clicked && the_click.key_number() == release.key_number() && near(release, the_click) &&
                        now - the_click_time <= click_seconds;
    gwKeyEvent event = key_event(release, second ? gwMOUSE_DOUBLE_CLICK : gwMOUSE_CLICK, gwPRESSED);
    if (second && !which_action(event))
        event = key_event(release, gwMOUSE_CLICK, gwPRESSED);
    the_was_clicked = !second;
    the_click = release;
    the_click_time = now;
    if (!which_action(event))
        return;
    delete_current_tool();
    if (the_current_tool)
        return; // it has claimed the release
    start_tool(event);
    end_twiddle(key_event(release, event.key_type(), gwRELEASED));
}

bool grTwiddleMan::tool_claims(const gwKeyEvent& event)
{
    const InCall in_call(the_in_call);
    return the_current_tool->allow_key_event_when_active(event);
}

void grTwiddleMan::end_twiddle(const gwKeyEvent& event)
{
    // A tool that was asked about the event may have stopped itself. One that draws its final frame is still active,
    // but what comes from inside must not end it a second time.
    if (!twiddling() || the_in_end)
        return;
    const InCall in_call(the_in_call);
    const InCall in_end(the_in_end);
    the_current_tool->base_end_twiddle(event);
}
