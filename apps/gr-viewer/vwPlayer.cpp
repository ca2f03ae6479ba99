#include "vwPlayer.h"

#include "vwScene.h"
#include "vwSession.h"
#include "vwSessionClock.h"

#include "dgView.h"
#include "gwDrawingArea.h"

#include <algorithm>

vwPlayer::~vwPlayer() = default;

int vwPlayer::play(const vwSession& session)
{
    for (const vwStep& step : session.steps)
        if (!play(step))
            return 0;
    return 1;
}

int vwPlayer::play(const vwStep& step)
{
    go_to(step.time);
    switch (step.kind)
    {
    case vwSTEP_PRESS:
    case vwSTEP_RELEASE:
    case vwSTEP_MOVE:
    case vwSTEP_WHEEL:
    case vwSTEP_SPACEBALL: vw_post_step(step, the_area); return 1;
    case vwSTEP_IDLE:
        for (int i = 0; i < step.count; ++i)
        {
            go_to(step.time + i * step.interval);
            if (the_scene.idle() == grIDLE_DONE && !the_scene.has_tool())
                break; // and so would be the rest
        }
        go_to(step.end_time());
        return 1;
    case vwSTEP_RESIZE:
        if (!resize(step.width, step.height))
            return 0;
        the_scene.resized();
        return 1;
    case vwSTEP_PICTURE: return take_picture(step);
    }
    return 1;
}

void vwPlayer::go_to(double time)
{
    // The end of some idle calls may lie behind the next step by a rounding.
    the_time = std::max(the_time, time);
    the_clock.session_time(the_time);
}

int vwPlayer::take_picture(const vwStep& step)
{
    vwPicture picture;
    picture.name = step.name;
    picture.session_time = step.time;
    const dgCamera& camera = the_scene.view(0).camera();
    picture.orientation = camera.orientation();
    picture.view_window = camera.view_window();
    read_picture(picture.image);
    return keep_picture(picture);
}
