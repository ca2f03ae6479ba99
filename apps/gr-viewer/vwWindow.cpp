#include "vwWindow.h"

#include "vwBindings.h"
#include "vwFonts.h"
#include "vwLoading.h"
#include "vwModel.h"
#include "vwOptions.h"
#include "vwRecorder.h"
#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"
#include "vwWindowKeys.h"

#include "pcPictureFile.h"

#include "grStringConverter.h"

#include "apHighResTime.h"
#include "coCallList.h"
#include "coReceiver.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgView.h"
#include "gwGLFWWindow.h"
#include "gwKeyEvent.h"
#include "gwResourceDB.h"

#include "flPath.h"
#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>

namespace
{
constexpr double title_interval = 0.5; // seconds
constexpr double look_interval = 1;    // seconds between looks at files
constexpr double spin_frame_seconds = 1 / 60.0;
constexpr double slow_frame_seconds = 0.05;
// While files are read: how long they are waited for before there is a window, which small ones need not show empty;
// the longest wait for events; between redraws, at least and in times of the last one.
constexpr double first_seconds = 0.1, arrival_seconds = 0.03, least_arrival_seconds = 0.1, arrival_pause = 3;

// The files that are shown, and whether they have changed since they were read.
class Files
{
public:
    explicit Files(const std::vector<std::string>& names) { open(names); }

    const std::vector<std::string>& names() const { return the_names; }
    void open(const std::vector<std::string>& names)
    {
        the_names = names;
        the_times = times();
        the_changed.clear();
    }
    // True once after the files were written, when they have then stayed the same from one look to the next.
    bool changed()
    {
        const double now = apHighResTime::time();
        if (now - the_last_look < look_interval)
            return false;
        the_last_look = now;
        std::vector<Time> found = times();
        const bool changed = found != the_times && found == the_changed;
        the_changed = std::move(found);
        return changed;
    }

private:
    using Time = std::filesystem::file_time_type;
    std::vector<Time> times() const
    {
        std::vector<Time> found;
        for (const std::string& name : the_names)
        {
            std::error_code failure;
            found.push_back(std::filesystem::last_write_time(fl_path(name), failure));
        }
        return found;
    }
    std::vector<std::string> the_names;
    std::vector<Time> the_times, the_changed;
    double the_last_look = 0;
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
    void names(const std::string& names) { the_text = names + " - gr-viewer"; }
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

    // All of the model was drawn.
    void shown() { the_shown = the_model.n_blocks(); }

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

// Files that are read while others are shown.
struct NextFiles
{
    NextFiles(gi_Axis up, const std::vector<std::string>& files, int fitted)
        : names(files), fit(fitted), model(up), loading(model, files)
    {}
    std::vector<std::string> names;
    int fit; // the views are fitted to them
    vwModel model;
    vwLoading loading;
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

vwSceneSettings settings_of(const vwOptions& options, const gwResourceDB& db, int views)
{
    vwSceneSettings settings = options.scene;
    settings.views = views;
    settings.axes = 1;
    settings.smooth_edges = options.smooth_edges < 0 ? flag(db, "smooth_edges") : options.smooth_edges;
    return settings;
}

// A viewer in its window.
class Viewer
{
public:
    Viewer(const vwOptions& options, gwGLFWWindow& window, const gwResourceDB& db, vwModel& model,
           std::unique_ptr<vwLoading> loading, vwRecorder* recorder, int views)
        : the_window(window), the_up(options.up), the_model(model), the_recorder(recorder),
          the_loading(std::move(loading)), the_files(options.files),
          the_scene(window.main_window(), window.overlay_window(), window, db, model.root(),
                    settings_of(options, db, views)),
          the_resizing(the_scene), the_title(window, vwModel::names(options.files), options.scene.stats),
          the_arrivals(window.input(), *the_loading, model, the_scene),
          the_keys(window.input(), {[this] { the_window.close(); }, [this] { the_reload = 1; },
                                    [this] { the_window.full_screen(!the_window.full_screen()); },
                                    [this] { write_picture(); }, [this] { note_picture(); }})
    {
        the_scene.parts(model.parts(), model.placing());
        vw_offer_font(options, the_scene);
        the_scene.overlay().help_text(vw_help_text(db));
        if (!recorder)
            the_scene.hover();
        window.resize_callback([this] { resized(); });
        window.drop_callback([this](const std::vector<std::string>& names) { the_dropped = names; });
    }
    ~Viewer()
    {
        the_window.resize_callback(nullptr);
        the_window.drop_callback(nullptr);
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    vwScene& scene() { return the_scene; }

    // Draws while there is something to draw, and waits for events otherwise. A view that spins turns by one step at
    // every idle call, so that these calls are kept at the pace of a screen; idle calls that fill in a picture are not.
    // Answers 0 with error set when a file of the command line cannot be read.
    int run(std::string& error)
    {
        double next_idle = 0;
        while (!the_window.should_close())
        {
            the_resizing.draw();
            open_files();
            if (!the_arrivals.show(error))
                return 0;
            const double now = apHighResTime::time();
            grIdleAction action = grIDLE_AGAIN;
            if (now >= next_idle)
            {
                if (the_recorder && the_scene.has_tool() && !the_scene.smooths())
                    the_recorder->idle();
                const int drawn = the_scene.frames_drawn();
                action = the_scene.idle();
                if (the_scene.frames_drawn() != drawn)
                    next_idle = now + spin_frame_seconds;
            }
            the_title.update(the_scene.frame_times(), the_next ? the_next->loading : *the_loading);
            double pause = std::max(next_idle - apHighResTime::time(), 0.0);
            const int waits = action == grIDLE_DONE || pause > 0;
            if (action == grIDLE_DONE)
                pause = the_loading->done() && !the_next ? look_interval : arrival_seconds;
            the_window.process_events(waits, pause);
        }
        return 1;
    }

private:
    void resized()
    {
        if (the_recorder)
            the_recorder->resized(the_window.width(), the_window.height());
        the_resizing.resized();
    }

    // Files that were dropped, or have changed; not while a session is recorded, or a tool is at work.
    void open_files()
    {
        if (the_recorder || the_scene.has_tool() || !the_loading->done())
            return;
        if (the_next)
            return show_next();
        if (!the_dropped.empty())
            the_next = std::make_unique<NextFiles>(the_up, std::exchange(the_dropped, {}), 1);
        else if (the_files.changed() || std::exchange(the_reload, 0))
        {
            the_files.open(std::vector<std::string>(the_files.names()));
            the_next = std::make_unique<NextFiles>(the_up, the_files.names(), 0);
        }
    }

    // What is shown stays where a file cannot be read, as while it is being written.
    void show_next()
    {
        std::string error;
        const int read = the_next->loading.update(0, error);
        if (read && !the_next->loading.done())
            return;
        const std::unique_ptr<NextFiles> next = std::move(the_next);
        if (!read)
        {
            std::cerr << "gr-viewer: " << error << '\n';
            return;
        }
        the_scene.forget_parts();
        the_model.take(next->model);
        the_model.note_flaws(std::cerr);
        if (next->fit)
            the_files.open(next->names);
        the_title.names(vwModel::names(the_files.names()));
        if (next->fit)
            the_scene.fit();
        else
            the_scene.redraw();
        the_arrivals.shown();
    }

    void write_picture()
    {
        dgImage image;
        static_cast<dgGLWindow*>(the_window.main_window())->read_front(image);
        std::string name, error;
        std::error_code failure;
        for (int i = 1; name.empty() || std::filesystem::exists(fl_path(name), failure); ++i)
            name = "gr-viewer-" + std::to_string(i) + ".png";
        if (pc_write_png(name, image, error))
            std::cerr << "gr-viewer: " << name << " written\n";
        else
            std::cerr << "gr-viewer: " << error << '\n';
    }

    void note_picture()
    {
        if (the_recorder)
            the_recorder->picture();
    }

    gwGLFWWindow& the_window;
    gi_Axis the_up;
    vwModel& the_model;
    vwRecorder* the_recorder;
    std::unique_ptr<vwLoading> the_loading;
    Files the_files;
    vwScene the_scene;
    Resizing the_resizing;
    Title the_title;
    Arrivals the_arrivals;
    vwWindowKeys the_keys;
    std::vector<std::string> the_dropped;
    int the_reload = 0;
    std::unique_ptr<NextFiles> the_next;
};
}

int vw_run_window(const vwOptions& options, std::string& error)
{
    gwResourceDB db;
    vwModel model(options.up);
    if (!vw_load_resources(options.resources, options.bindings, db, error, &std::cerr))
        return 0;
    auto loading = std::make_unique<vwLoading>(model, options.files);
    // A session is played on all of the model, and a text stands before all of it.
    const bool at_once = !options.record.empty() || !options.text.empty();
    if (!(at_once ? loading->finish(error) : loading->update(first_seconds, error)))
        return 0;
    if (loading->done())
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
    Viewer viewer(options, *window, db, model, std::move(loading), recorder ? &*recorder : nullptr, head.views);
    if (!vw_add_text(options, viewer.scene(), model, error) || !viewer.run(error))
        return 0;
    return recorder ? recorder->finish(error) : 1;
}
