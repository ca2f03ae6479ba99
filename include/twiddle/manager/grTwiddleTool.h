#pragma once

#include "grExport.h"
#include "grIdleAction.h"
#include "grTwidBusyState.h"
#include "grTwidState.h"
#include "utString.h"
#include "utTypeID.h"

class gwKeyEvent;
class gwMouseEvent;
class gwResourceDB;
class gwSpaceballEvent;

/// Base of every tool that changes something interactively between the press of a key and its release.
///
/// A factory makes a tool on the heap when a key press pulls its trigger; the twiddle manager then owns it and drives
/// it through the base_... functions alone: start, any number of mouse, spaceball and idle events, end, more events in
/// state grTWID_ENDED, and destruction_twiddle right before it is deleted. A tool that finds nothing to act on at its
/// start is driven all the same and ignores what follows.
class GR_EXPORT grTwiddleTool
{
public:
    /// args is the argument text of the trigger; db is not owned, must outlive the tool and may be null.
    grTwiddleTool(const utString& args, const gwResourceDB* db) : the_args(args), the_resource_db(db) {}

    /// Asked about a key event while the tool is active: 0 lets it end the twiddle, any other value swallows it.
    virtual int allow_key_event_when_active(const gwKeyEvent& event) const;
    virtual ~grTwiddleTool();

    void base_start_twiddle(const gwKeyEvent& event);
    void base_mouse_event(const gwMouseEvent& event) { mouse_event(event); }
    void base_spaceball_event(const gwSpaceballEvent& event) { spaceball_event(event); }
    grIdleAction base_idle_event() { return idle_event(); }
    /// Also records the last twiddle details, after everything else.
    void base_end_twiddle(const gwKeyEvent& event);
    void base_destruction_twiddle() { destruction_twiddle(); }

    grTwidState state() const { return the_state; }
    grTwidBusyState busy_state() const { return the_busy_state; }
    const utString& args() const { return the_args; }
    const gwResourceDB* resource_db() const { return the_resource_db; }

    /// The class name of the tool whose twiddle ended last and when that was, in seconds of apHighResTime; an empty
    /// name and 0 before the first end.
    static void get_last_twiddle_details(utString& name, double& end_time);

protected:
    grTwiddleTool(const grTwiddleTool&) = delete;
    grTwiddleTool& operator=(const grTwiddleTool&) = delete;

    virtual void start_twiddle(const gwKeyEvent& event) = 0;
    virtual void mouse_event(const gwMouseEvent& event);
    virtual void spaceball_event(const gwSpaceballEvent& event);
    virtual grIdleAction idle_event();
    /// Called at the end while the state is still grTWID_TWIDDLING, before end_twiddle.
    virtual void final_frame();
    virtual void end_twiddle(const gwKeyEvent& event) = 0;
    virtual void destruction_twiddle() = 0;

    void busy_state(grTwidBusyState state) { the_busy_state = state; }

public:
    UT_DECLARE_ROOT_TYPE(grTwiddleTool);

private:
    grTwidState the_state = grTWID_NOT_STARTED;
    grTwidBusyState the_busy_state = grTWID_BUSY;
    utString the_args;
    const gwResourceDB* the_resource_db;
};
