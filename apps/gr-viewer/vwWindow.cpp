#include "vwWindow.h"

#include "vwFonts.h"
#include "vwLoading.h"
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
// While files are read: how long they are waited for before there is a window, which small ones need not show empty;
// the longest wait for events; between redraws, at least and in times of the last one.
constexpr double first_seconds = 0.1, arrival_seconds = 0.03, least_arrival_seconds = 0.1, arrival_pause = 3;

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

// The window's title: the files, how much of them is read, and with --stats the times of the last frames; renewed twice
// a second.
class Title
{
public:
    Title(gwGLFWWindow& window, const std::string& names, int stats)
        : the_window(window), the_text(names + " - gr-viewer"), the_stats(stats)
    {
        show(the_text);
    }
    void update(const vwFrameTimes& times, const vwLoading& loading)
    {
        const double now = apHighResTime::time();
        if (now - the_time < title_interval)
            return;
        std::string text = the_text;
        if (!loading.done())
            text = "reading, " + std::to_string(static_cast<int>(100 * loading.share())) + " % - " + text;
        else if (the_stats && !times.frames().empty())
            text += " - " + vw_frame_text(times.summary(vwFrameTimes::recent));
        the_time = now;
        if (text != the_shown)
            show(text);
    }

private:
    void show(const std::string& text)
    {
        the_window.title(text);
        the_shown = text;
    }

    gwGLFWWindow& the_window;
    std::string the_text;
    int the_stats;
    std::string the_shown;
    double the_time = -title_interval;
};

// Shows what has come of the files, all of it until the user takes the views in hand.
class Arrivals : public coReceiver
{
public:
    Arrivals(gwInput& input, vwLoading& loading, const vwModel& model, vwScene& scene)
        : the_loading(loading), the_model(model), the_scene(scene), the_shown(model.n_blocks())
    {
        input.call_list().add(gwCR_event, coCallFunc::member<&Arrivals::event>(this));
    }

    // Answers 0 with error set when a file cannot be read.
    int show(std::string& error)
    {
        if (the_loading.done() && the_shown == the_model.n_blocks())
            return 1;
        const int was_done = the_loading.done();
        if (!the_loading.update(0, error))
            return 0;
        if (the_loading.done() && !was_done)
            the_model.note_flaws(std::cerr);
        // Drawing takes its share of the time alone while more comes, and none from a tool.
        const double start = apHighResTime::time();
        if (the_shown == the_model.n_blocks() || the_scene.has_tool() || (start < the_next && !the_loading.done()))
            return 1;
        the_shown = the_model.n_blocks();
        if (the_touched)
            the_scene.redraw();
        else
            the_scene.fit();
        const double end = apHighResTime::time();
        the_next = end + std::max(least_arrival_seconds, arrival_pause * (end - start));
        return 1;
    }

private:
    void event(void*, void* data)
    {
        const gwKeyEvent* key = gwKeyEvent::ut_dynamic_cast(&gwInput::event(data));
        the_touched |= (key && key->transition() == gwPRESSED) || the_scene.has_tool();
    }

    vwLoading& the_loading;
    const vwModel& the_model;
    vwScene& the_scene;
    int the_shown; // blocks
    double the_next = 0;
    int the_touched = 0;
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

// Whether a resource says yes; no when it is not there.
int flag(const gwResourceDB& db, const char* key)
{
    utString text;
    int on = 0;
    if (db.get_resource(key, text))
        grStringConverter::to_bool(text, on);
    return on;
}

// Draws while there is something to draw, and waits for events otherwise. A view that spins turns by one step at every
// idle call, so that these calls are kept at the pace of a screen; idle calls that fill in a picture are not.
// Answers 0 with error set when a file cannot be read.
int run(gwGLFWWindow& window, vwScene& scene, vwRecorder* recorder, Title& title, Resizing& resizing,
        const vwLoading& loading, Arrivals& arrivals, std::string& error)
{
    double next_idle = 0;
    while (!window.should_close())
    {
        resizing.draw();
        if (!arrivals.show(error))
            return 0;
        const double now = apHighResTime::time();
        grIdleAction action = grIDLE_AGAIN;
        if (now >= next_idle)
        {
            if (recorder && scene.has_tool() && !scene.smooths())
                recorder->idle();
            const int drawn = scene.frames_drawn();
            action = scene.idle();
            if (scene.frames_drawn() != drawn)
                next_idle = now + spin_frame_seconds;
        }
        title.update(scene.frame_times(), loading);
        double pause = std::max(next_idle - apHighResTime::time(), 0.0);
        const int waits = action == grIDLE_DONE || pause > 0;
        if (action == grIDLE_DONE && !loading.done())
            pause = arrival_seconds;
        window.process_events(waits, pause);
    }
    return 1;
}
}

int vw_run_window(const vwOptions& options, std::string& error)
{
    gwResourceDB db;
    vwModel model;
    if (!vw_load_resources(options.resources, options.bindings, db, error, &std::cerr))
        return 0;
    vwLoading loading(model, options.files);
    // A session is played on all of the model, and a text stands before all of it.
    const bool at_once = !options.record.empty() || !options.text.empty();
    if (!(at_once ? loading.finish(error) : loading.update(first_seconds, error)))
        return 0;
    if (loading.done())
        model.note_flaws(std::cerr);

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
    window->fine_wheel(flag(db, "mouse_wheel_zoom_proportional"));
    vwRecorder* const recording = recorder ? &*recorder : nullptr;
    Keys keys(*window, recording);
    vwScene scene(window->main_window(), window->overlay_window(), *window, db, model.root(),
                  {head.views, options.framerate, options.stats, options.cursor, options.rubber_banding,
                   options.refresher, options.multi, options.independent, options.perspective, options.paper,
                   options.smooth_edges < 0 ? flag(db, "smooth_edges") : options.smooth_edges});
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
    Title title(*window, vwModel::names(options.files), options.stats);
    Arrivals arrivals(window->input(), loading, model, scene);
    const int read = run(*window, scene, recording, title, resizing, loading, arrivals, error);
    window->resize_callback(nullptr);
    if (!read)
        return 0;
    return recording ? recording->finish(error) : 1;
}
