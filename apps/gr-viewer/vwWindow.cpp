#include "vwWindow.h"

#include "vwFonts.h"
#include "vwModel.h"
#include "vwOptions.h"
#include "vwRecorder.h"
#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"

#include "grStringConverter.h"

#include "apHighResTime.h"
#include "coCallList.h"
#include "coReceiver.h"
#include "dgView.h"
#include "gwGLFWWindow.h"
#include "gwKeyEvent.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <iostream>
#include <optional>

namespace
{
constexpr double title_interval = 0.5; // seconds
constexpr double spin_frame_seconds = 1 / 60.0;
constexpr double slow_frame_seconds = 0.05;

// The keys of the viewer itself: control Q closes the window, P notes a picture in the session that is recorded.
class Keys : public coReceiver
{
public:
    Keys(gwGLFWWindow& window, vwRecorder* recorder) : the_window(window), the_recorder(recorder)
    {
        window.input().call_list().add(gwCR_event, coCallFunc::member<&Keys::event>(this));
    }

private:
    void event(void*, void* data)
    {
        const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&gwInput::event(data));
        if (!key || key->transition() != gwPRESSED || key->key_type() != gwQWERTY_KEY)
            return;
        if (key->key_number() == 'Q' && key->modifiers() == gwMODIFIER_CONTROL)
            the_window.close();
        if (key->key_number() == 'P' && the_recorder)
            the_recorder->picture();
    }
    gwGLFWWindow& the_window;
    vwRecorder* the_recorder;
};

// The window's title: the files, and with --stats the times of the last frames, renewed twice a second.
class Title
{
public:
    Title(gwGLFWWindow& window, const std::string& names, int stats)
        : the_window(window), the_text(names + " - gr-viewer"), the_stats(stats)
    {
        window.title(the_text);
    }
    void update(const vwFrameTimes& times)
    {
        const double now = apHighResTime::time();
        const std::size_t count = times.frames().size();
        if (!the_stats || count == the_shown || now - the_time < title_interval)
            return;
        the_shown = count;
        the_time = now;
        the_window.title(the_text + " - " + vw_frame_text(times.summary(vwFrameTimes::recent)));
    }

private:
    gwGLFWWindow& the_window;
    std::string the_text;
    int the_stats;
    std::size_t the_shown = 0;
    double the_time = -title_interval;
};

// Draws a scene anew when its window has got another size: at once, or before the next events where drawing is slow and
// sizes and even the end of the window may follow each other meanwhile.
class Resizing
{
public:
    explicit Resizing(vwScene& scene) : the_scene(scene) {}
    void resized()
    {
        const std::vector<vwFrame>& frames = the_scene.frame_times().frames();
        the_pending = !frames.empty() && frames.back().seconds > slow_frame_seconds;
        if (!the_pending)
            the_scene.resized();
    }
    void draw()
    {
        if (the_pending)
            the_scene.resized();
        the_pending = 0;
    }

private:
    vwScene& the_scene;
    int the_pending = 0;
};

// Draws while there is something to draw, and waits for events otherwise. A view that spins turns by one step at every
// idle call, so that these calls are kept at the pace of a screen; idle calls that fill in a picture are not.
void run(gwGLFWWindow& window, vwScene& scene, vwRecorder* recorder, Title& title, Resizing& resizing)
{
    double next_idle = 0;
    while (!window.should_close())
    {
        resizing.draw();
        const double now = apHighResTime::time();
        grIdleAction action = grIDLE_AGAIN;
        if (now >= next_idle)
        {
            if (recorder && scene.has_tool())
                recorder->idle();
            const int drawn = scene.frames_drawn();
            action = scene.idle();
            if (scene.frames_drawn() != drawn)
                next_idle = now + spin_frame_seconds;
        }
        title.update(scene.frame_times());
        const double pause = next_idle - apHighResTime::time();
        window.process_events(action == grIDLE_DONE || pause > 0, std::max(pause, 0.0));
    }
}
}

int vw_run_window(const vwOptions& options, std::string& error)
{
    gwResourceDB db;
    vwModel model;
    if (!vw_load_resources(options.resources, options.bindings, db, error, &std::cerr))
        return 0;
    if (!model.add_files(options.files, std::cerr, error))
        return 0;

    vwSession head;
    if (options.width)
    {
        head.width = options.width;
        head.height = options.height;
    }
    head.views = std::max(options.views, 1);
    const std::unique_ptr<gwGLFWWindow> window = gwGLFWWindow::create("gr-viewer", head.width, head.height, error);
    if (!window)
    {
        error = "no window can be opened (is there a display? --offscreen needs none): " + error;
        return 0;
    }
    head.width = std::clamp(window->width(), 1, vw_max_size);
    head.height = std::clamp(window->height(), 1, vw_max_size);

    std::optional<vwRecorder> recorder;
    if (!options.record.empty())
    {
        recorder.emplace(window->input());
        if (!vw_keeps_inputs(options, options.record, error) || !recorder->start(options.record, head, error))
            return 0;
    }
    utString proportional;
    int fine_wheel = 0;
    if (db.get_resource("mouse_wheel_zoom_proportional", proportional))
        grStringConverter::to_bool(proportional, fine_wheel);
    window->fine_wheel(fine_wheel);
    vwRecorder* const recording = recorder ? &*recorder : nullptr;
    Keys keys(*window, recording);
    vwScene scene(window->main_window(), window->overlay_window(), *window, db, model.root(),
                  {head.views, options.framerate, options.stats, options.cursor, options.rubber_banding,
                   options.refresher, options.multi, options.independent, options.perspective, options.paper});
    if (!vw_add_text(options, scene, model, error))
        return 0;
    Resizing resizing(scene);
    window->resize_callback(
        [&]
        {
            if (recording)
                recording->resized(window->width(), window->height());
            resizing.resized();
        });
    Title title(*window, model.names(), options.stats);
    run(*window, scene, recording, title, resizing);
    window->resize_callback(nullptr);
    return recording ? recording->finish(error) : 1;
}
