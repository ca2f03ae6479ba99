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
    the_file = file;
    the_stream.open(file, std::ios::binary);
    if (!the_stream)
    {
        error = file + ": the session cannot be written";
        return 0;
    }
    the_start = apHighResTime::time();
    vw_write_session_head(the_stream, head);
    return 1;
}

void vwRecorder::write(vwStep& step)
{
    if (!the_stream.is_open())
        return;
    // Microseconds are finer than any mouse, and short to read.
    const double now = std::round((apHighResTime::time() - the_start) * 1e6) / 1e6;
    the_last_time = std::max(the_last_time, now);
    step.time = the_last_time;
    vw_write_step(the_stream, step);
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
    step.width = width;
    step.height = height;
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
    the_stream.close();
    if (the_stream)
        return 1;
    error = the_file + ": the session could not be written to its end";
    return 0;
}
