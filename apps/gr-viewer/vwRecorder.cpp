#include "vwRecorder.h"

#include "apHighResTime.h"
#include "coCallList.h"
#include "gwInput.h"

#include <algorithm>
#include <cmath>

vwRecorder::vwRecorder(gwInput& input) : the_start(apHighResTime::time())
{
    input.call_list().add(gwCR_event, coCallFunc::member<&vwRecorder::event>(this));
}

int vwRecorder::start(const std::string& file, const vwSession& head, std::string& error)
{
    the_open = the_file.open(file, error);
    the_start = apHighResTime::time();
    vw_write_session_head(the_file.stream(), head);
    return the_open;
}

void vwRecorder::write(vwStep& step)
{
    // Microseconds are finer than any mouse, and short to read.
    const double now = std::round((apHighResTime::time() - the_start) * 1e6) / 1e6;
    the_last_time = std::max(the_last_time, now);
    step.time = the_last_time;
    if (!the_open || !vw_readable_step(step))
        return;
    vw_write_step(the_file.stream(), step);
    the_open = the_file.publish(the_error);
}

void vwRecorder::event(void*, void* data)
{
    vwStep step;
    if (vw_step_of_event(gwInput::event(data), step))
        write(step);
}

void vwRecorder::idle()
{
    vwStep step;
    step.kind = vwSTEP_IDLE;
    write(step);
}

void vwRecorder::resized(int width, int height)
{
    vwStep step;
    step.kind = vwSTEP_RESIZE;
    step.width = std::clamp(width, 1, vw_max_size);
    step.height = std::clamp(height, 1, vw_max_size);
    write(step);
}

void vwRecorder::picture()
{
    vwStep step;
    step.kind = vwSTEP_PICTURE;
    step.name = "picture-" + std::to_string(++the_n_pictures);
    write(step);
}

int vwRecorder::finish(std::string& error)
{
    picture();
    if (the_open && the_file.commit(the_error))
        return 1;
    error = the_error;
    return 0;
}
