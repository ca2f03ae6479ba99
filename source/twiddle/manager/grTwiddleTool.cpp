#include "grTwiddleTool.h"

#include "apHighResTime.h"
#include "utTypeID.h"

namespace
{
struct LastTwiddle
{
    utString tool_name;
    double end_time = 0.0;
};

LastTwiddle& last_twiddle()
{
    // Never destroyed: a twiddle may end when static objects of an application are destroyed.
    static LastTwiddle& details = *new LastTwiddle;
    return details;
}
}

UT_DEFINE_TYPE(grTwiddleTool);

int grTwiddleTool::allow_key_event_when_active(const gwKeyEvent&) const
{
    return 0;
}

grTwiddleTool::~grTwiddleTool() = default;

void grTwiddleTool::base_start_twiddle(const gwKeyEvent& event)
{
    the_state = grTWID_TWIDDLING;
    start_twiddle(event);
}

void grTwiddleTool::base_end_twiddle(const gwKeyEvent& event)
{
    final_frame();
    the_state = grTWID_ENDED;
    end_twiddle(event);

    LastTwiddle& last = last_twiddle();
    last.tool_name = ut_dynamic_type().name();
    last.end_time = apHighResTime::time();
}

void grTwiddleTool::get_last_twiddle_details(utString& name, double& end_time)
{
    name = last_twiddle().tool_name;
    end_time = last_twiddle().end_time;
}

void grTwiddleTool::mouse_event(const gwMouseEvent&) {}

void grTwiddleTool::spaceball_event(const gwSpaceballEvent&) {}

grIdleAction grTwiddleTool::idle_event()
{
    return grIDLE_DONE;
}

void grTwiddleTool::final_frame() {}
