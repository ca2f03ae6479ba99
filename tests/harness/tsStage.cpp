#include "tsStage.h"

#include "dgAppElement.h"
#include "dgClientStructure.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giXform3.h"
#include "grTwiddleOverlayCallback.h"
#include "grView.h"
#include "grViewListUtils.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "gr_make_tblock.h"
#include "tsCommand.h"
#include "tsScene.h"
#include "tsScript.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

namespace
{
tsStage* the_stage = nullptr;

void overlay(dgView& view)
{
    the_stage->called("overlay " + the_stage->name_of(&view));
}

// A line of the trace driver in short: what is drawn, erased, selected and swapped.
std::string brief(const std::string& line, const dgTraceWindow& window)
{
    tsWords words = ts_words(line);
    const std::size_t at = words.front() == "xor" ? 1 : 0;
    if (words.size() >= at + 5 && words[at] == "draw" && words[at + 1] == "lines")
        return (at ? "xor draw " : "draw ") + words[at + 2];
    if (words.size() == at + 2 && words[at] == "select_buffer")
        return words[at + 1];
    if (line == "present")
        return "swap";
    if (words.size() == 7 && words[0] == "clear" && words[5] == "colour")
    {
        const std::string box = words[1] + " " + words[2] + " " + words[3] + " " + words[4];
        const int whole =
            box == "0 0 " + std::to_string(window.width() - 1) + " " + std::to_string(window.height() - 1);
        return whole ? "erase" : "erase " + box;
    }
    return line;
}

// An element that tells of its drawing.
class Spy : public dgAppElement
{
public:
    Spy(tsStage& stage, std::string name) : the_stage(stage), the_name(std::move(name)) {}
    Spy* copy() const override { return new Spy(the_stage, the_name); }
    void draw(dgRenderer*) const override { the_stage.called("element " + the_name); }

private:
    tsStage& the_stage;
    std::string the_name;
};

dgStructure& root_of(dgView& view)
{
    if (!view.root())
        throw std::runtime_error("the view has no root");
    return *view.root();
}
}

std::string tsArguments::word()
{
    if (!more())
        throw std::runtime_error("a word is missing");
    return the_words[the_next++];
}

double tsArguments::number()
{
    return ts_value(word());
}

dgView& tsArguments::view()
{
    const std::string name = word();
    dgView* view = the_stage.find_view(name);
    if (!view)
        throw std::runtime_error("no view " + name);
    return *view;
}

grView& tsArguments::companion()
{
    const std::string name = word();
    grView* view = the_stage.companion(name);
    if (!view)
        throw std::runtime_error("no companion " + name);
    return *view;
}

tsViews tsArguments::views()
{
    tsViews views;
    while (more() && !next_is("+"))
        views.add_last(&view());
    return views;
}

tsWindow& tsArguments::window()
{
    return the_stage.window(more() ? integer() : 1);
}

std::string tsArguments::rest()
{
    std::string text;
    while (more())
        text += (text.empty() ? "" : " ") + word();
    return text;
}

int tsArguments::next_is(const std::string& word)
{
    const int found = more() && the_words[the_next] == word;
    the_next += static_cast<std::size_t>(found);
    return found;
}

tsWindow::tsWindow(int width, int height, int with_overlay) : input(width, height), surface(width, height)
{
    if (with_overlay)
        overlay = std::make_unique<dgTraceWindow>(width, height);
    own_renderer = std::make_unique<dgRenderer>(&surface, overlay.get(), &input);
    renderer = own_renderer.get();
}

tsWindow::~tsWindow() = default;

// Tells of the changes of a view.
struct tsStage::Watch : coReceiver
{
    Watch(tsStage& its_stage, dgView& view) : stage(its_stage), name(its_stage.name_of(&view))
    {
        view.call_list().add(DG_WORLD2VIEW_CHANGED, coCallFunc::member<&Watch::changed>(this));
        view.call_list().add(DG_CAMERA_SHOWN, coCallFunc::member<&Watch::shown>(this));
        view.call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&Watch::gone>(this));
    }
    void changed() { stage.called("changed " + name); }
    void shown() { stage.called("shown " + name, 1); }
    void gone() { stage.called("gone " + name); }
    tsStage& stage;
    std::string name;
};

// Each stage begins a while after the one before: what the process remembers of a time is long ago.
tsStage::tsStage() : clock(0, 1000)
{
    static double begin = 0;
    clock.set_time(begin += 1024);
    the_stage = this;
    on("wait") = [this](double seconds) { clock.advance(seconds); };
    on("set") = [this](const std::string& name, double value)
    {
        if (!the_settings.contains(name))
            throw std::runtime_error("no setting " + name);
        the_settings.at(name)(value);
    };
    on("tell") = [this](const tsRest& names)
    {
        for (const std::string& name : ts_parts(names, ","))
            the_told.insert(name);
    };
    on("when") = [this](const tsRest& text)
    {
        const auto at = text.find(" do ");
        if (at == std::string::npos)
            throw std::runtime_error("when CALL do COMMAND & COMMAND");
        the_whens.push_back({text.substr(0, at), text.substr(at + 4)});
    };
    add_view_commands();
    add_companion_commands();
    add_list_commands();
    the_parts.push_back(ts_band_part(*this));
    the_parts.push_back(ts_refresh_part(*this));
    the_parts.push_back(ts_tool_part(*this));
}

tsStage::~tsStage()
{
    grTwiddleOverlayCallback::register_callback(nullptr);
    while (!the_restores.empty())
    {
        the_restores.back()();
        the_restores.pop_back();
    }
    while (!the_parts.empty())
        the_parts.pop_back();
    the_watches.clear();
    the_companions.clear();
    the_views.clear();
    the_windows.clear();
    the_stage = nullptr;
}

void tsStage::run(const std::string& commands)
{
    for (const std::string& command : ts_parts(commands, ";"))
        run_one(command);
}

void tsStage::run_one(const std::string& command)
{
    std::vector<std::string> words = ts_words(command);
    const auto found = the_commands.find(words.front());
    if (found == the_commands.end())
        throw std::runtime_error("no command " + words.front());
    words.erase(words.begin());
    tsArguments in(*this, words);
    try
    {
        found->second(in);
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(command + ": " + error.what());
    }
    if (in.more())
        throw std::runtime_error(command + ": too many words, from '" + in.word() + "' on");
}

void tsStage::drain()
{
    for (std::size_t i = 0; i < the_windows.size(); ++i)
        for (dgTraceWindow* surface : {&the_windows[i]->surface, the_windows[i]->overlay.get()})
        {
            if (!surface)
                continue;
            for (const std::string& line : surface->log())
                if (!line.ends_with("begin") && !line.ends_with("end") && line != "swap_buffers 0" &&
                    (line != "finish" || the_told.contains(line)))
                    the_records.push_back((i ? std::to_string(i + 1) + ": " : "") +
                                          (surface == &the_windows[i]->surface ? "" : "overlay ") +
                                          brief(line, *surface));
            surface->clear_log();
        }
}

std::vector<std::string> tsStage::take()
{
    drain();
    return std::exchange(the_records, {});
}

void tsStage::note(const std::string& record)
{
    drain();
    the_records.push_back(record);
}

void tsStage::note_values(const std::vector<double>& values)
{
    std::ostringstream os;
    os.precision(17);
    for (const double value : values)
        os << (os.tellp() > 0 ? " " : "") << value;
    note(os.str());
}

void tsStage::called(const std::string& name, int quiet)
{
    if (!quiet || the_told.contains(name))
        note(name);
    the_calls.push_back(name);
    const int call = the_n_calls++;
    std::string commands;
    const auto when = std::find_if(the_whens.begin(), the_whens.end(), [&](const When& w) { return w.call == name; });
    if (when != the_whens.end())
    {
        commands = when->commands;
        the_whens.erase(when);
    }
    for (const std::string& command : ts_parts(commands, "&"))
        run_one(command);
    if (call != the_interrupted_call)
        return;
    the_interrupted_call = -1;
    try
    {
        run(the_interruption);
    }
    catch (const std::runtime_error&)
    {
        // There is nothing to do it to; an exception must not cross the library.
    }
}

void tsStage::interrupt(int call, const std::string& commands)
{
    the_interrupted_call = call;
    the_interruption = commands;
}

std::string tsStage::complaint()
{
    for (const auto& [name, view] : the_views)
        if (view.own && !dgS::views().contains(view.own.get()))
            return "view " + name + " is not registered";
    for (const auto& window : the_windows)
    {
        if (!window->renderer)
            continue;
        if (window->renderer->current_driver_index() != 0 && !window->overlay)
            return "another driver than the main one is selected";
        std::string buffer = "front";
        for (const std::string& line : window->surface.log())
            if (line.starts_with("select_buffer "))
                buffer = line.substr(14);
        if (buffer != "front")
            return "the " + buffer + " buffer is left selected";
    }
    return {};
}

dgView* tsStage::find_view(const std::string& name) const
{
    const auto found = the_views.find(name);
    return found != the_views.end() && found->second.view && dgS::views().contains(found->second.view)
               ? found->second.view
               : nullptr;
}

std::string tsStage::name_of(const dgView* view) const
{
    for (const auto& [name, entry] : the_views)
        if (entry.view == view)
            return name;
    return view ? "?" : "none";
}

std::vector<std::string> tsStage::view_names() const
{
    std::vector<std::string> names;
    for (const auto& [name, entry] : the_views)
        if (find_view(name))
            names.push_back(name);
    return names;
}

std::string tsStage::names_of(const dgViewcoDList& views) const
{
    std::string names;
    for (const dgView* view : views)
        names += (names.empty() ? "" : " ") + name_of(view);
    return names.empty() ? "none" : names;
}

std::string tsStage::adopt(dgView& view)
{
    for (auto& [other, entry] : the_views)
        if (entry.view == &view)
            entry.view = nullptr; // dead, at the same address
    const std::string name(1, static_cast<char>('a' + the_views.size()));
    the_views[name] = {&view, nullptr};
    const dgRef<dgStructure> root = tsLine(static_cast<int>(the_views.size()));
    view.root(root.get());
    return name;
}

grView* tsStage::companion(const std::string& name) const
{
    const auto found = the_companions.find(name);
    return found == the_companions.end() ? nullptr : found->second.get();
}

void tsStage::add_view_commands()
{
    on("window") = [this](tsOr<100> width, tsOr<100> height, tsArguments& in)
    {
        the_windows.push_back(std::make_unique<Window>(width, height, in.next_is("overlay")));
        if (in.next_is("single"))
            the_windows.back()->surface.capability(dgCAPABILITY_DOUBLE_BUFFERING, 0);
    };
    on("single") = [](Window& window) { window.surface.capability(dgCAPABILITY_DOUBLE_BUFFERING, 0); };
    on("capability") = [](dgDriverCapability capability, int on, Window& window)
    { window.surface.capability(capability, on); };
    // Views are named a, b, c ... and have roots of 1, 2, 3 ... segments.
    on("view") = [this](Window& window, tsArguments& in)
    {
        auto view = std::make_unique<dgView>(window.renderer);
        view->camera().view_port_dc(in.more() ? ts_read<giBox2>(in) : window.renderer->window_box());
        the_views[adopt(*view)].own = std::move(view);
    };
    on("close") = [this](dgView& view)
    {
        const std::unique_ptr<dgView> dying = std::move(the_views.at(name_of(&view)).own);
        if (!dying)
            throw std::runtime_error("the view has another owner");
    };
    on("close_window") = [this](Window& closed)
    {
        for (auto& [name, view] : the_views)
            if (view.own && view.own->renderer() == closed.renderer)
                const std::unique_ptr<dgView> dying = std::move(view.own);
        closed.renderer = nullptr;
        closed.own_renderer.reset();
    };
    on("unplug") = [](dgView& view) { view.renderer(nullptr); };
    on("plug") = [](dgView& view, Window& window) { view.renderer(window.renderer); };
    on("look") = [](dgView& view, const giBox2& window) { view.camera().view_window(window); };
    const auto move = [](dgView& view, const giXform3& motion)
    { view.camera().orientation(view.camera().orientation() * motion); };
    on("turn") = [move](dgView& view, double angle, const giVector3& axis)
    { move(view, giXform3::rotation(giAngle(angle), axis)); };
    on("shift") = [move](dgView& view, const giVector3& by) { move(view, giXform3::translation(by)); };
    on("changed") = [](dgView& view) { view.camera().world2view_altered(); };
    on("set_planes") = [](dgView& view, double front, double back, tsOr<0> by_user)
    {
        view.camera().front_back_plane(front, back);
        view.user_clip_planes(by_user);
    };
    on("perspective") = [](dgView& view, tsArguments& in)
    {
        view.camera().projection(dgPROJECTION_PERSPECTIVE);
        if (in.more())
            view.camera().projection_reference_point(ts_read<giPoint3>(in));
    };
    on("pan_forbidden") = [](dgView& view) { view.pan_forbidden(1); };
    on("watch") = [this](dgView& view) { the_watches.push_back(std::make_unique<Watch>(*this, view)); };
    on("overlay") = [](int on) { grTwiddleOverlayCallback::register_callback(on ? overlay : nullptr); };
    // Networks.
    on("spy") = [this](dgView& view) { root_of(view).add(new Spy(*this, name_of(&view))); };
    on("root") = [](dgView& view, tsArguments& in)
    {
        if (in.next_is("none"))
            view.root(nullptr);
        else if (in.next_is("of"))
            view.root(in.view().root());
        else
            view.root(tsLine(in.integer()).get());
    };
    on("grow") = [](dgView& view, int segments, tsOr<1> times)
    {
        for (int i = times; i > 0; --i)
            root_of(view).add(tsLine(segments)->element(0));
    };
    on("cut") = [](dgView& view, int first, tsOr<0> last)
    { root_of(view).delete_range(first, std::min(std::max<int>(first, last), root_of(view).nelements() - 1)); };
    on("clear") = [](dgView& view) { root_of(view).clear(); };
    // Two triangles, below and above the diagonal that rises to the right, at a depth.
    on("rectangle") = [](dgView& view, const giBox2& box, tsOr<0.0> z)
    {
        const auto corner = [&](int right, int upper)
        { return giPoint3((right ? box.high() : box.low()).x(), (upper ? box.high() : box.low()).y(), z); };
        root_of(view).add(
            new dgTriangleBlock(ts_sheet(1, 0, 1, corner, [](int, int) { return giVector3(0, 0, 1); }), 1));
    };
    on("cube") = [](dgView& view, const giPoint3& middle, double side)
    { root_of(view).add(new dgTriangleBlock(gr_make_cube(middle, side), 1)); };
    // What a camera shows.
    using Values = std::vector<double>;
    on("size") = [](dgView& view)
    {
        const giBox2& window = view.camera().view_window();
        return Values{window.width(), window.height()};
    };
    on("middle") = [](dgView& view)
    {
        const giPoint2 middle = view.camera().view_window().middle();
        return Values{middle.x(), middle.y()};
    };
    on("planes") = [](dgView& view) {
        return Values{view.camera().front_plane(), view.camera().back_plane(), double(view.user_clip_planes())};
    };
    // Where a world point is in view space, and on the screen.
    on("sees") = [](dgView& view, const giPoint3& world) { return world * view.camera().orientation(); };
    on("shows") = [](dgView& view, const giPoint3& world)
    {
        giPoint3 shown;
        view.camera().transform(world, shown, dgSPACE_WORLD, dgSPACE_DEVICE);
        return Values{shown.x(), shown.y()};
    };
    // Angle and axis, in view space.
    on("turned") = [](dgView& view)
    {
        const giXform3& x = view.camera().orientation();
        const giVector3 twice_sine(x(1, 2) - x(2, 1), x(2, 0) - x(0, 2), x(0, 1) - x(1, 0));
        const double angle = std::atan2(twice_sine.length(), x(0, 0) + x(1, 1) + x(2, 2) - 1);
        if (angle < 1e-9)
            return Values{0};
        const giVector3 axis = twice_sine.unit();
        return Values{angle, axis.x(), axis.y(), axis.z()};
    };
    // The images of the axes.
    on("axes") = [this](dgView& view)
    {
        const giXform3& x = view.camera().orientation();
        for (int i = 0; i < 3; ++i)
            note_values({x(i, 0), x(i, 1), x(i, 2)});
    };
    // Whether the planes are those that the camera itself fits to the network in a mode.
    on("fits_planes") = [](dgView& view, dgBoundingViewType mode)
    {
        dgCamera fitted(view.camera());
        fitted.clip_bounding_box(view.root()->bounding_box(), mode);
        return fitted.front_plane() == view.camera().front_plane() && fitted.back_plane() == view.camera().back_plane();
    };
    on("refs") = [](dgView& view) { return view.reference_count(); };
    on("elements") = [](dgView& view) { return root_of(view).nelements(); };
}

void tsStage::add_companion_commands()
{
    // Each makes the companion of a view: its own, one locked to another's, a sheet, one on a sheet.
    on("companion") = [this](dgView& view, tsArguments& in)
    {
        grView* parent = in.next_is("of") ? companion(in.word()) : nullptr;
        the_companions[name_of(&view)] = std::make_unique<grView>(&view, parent);
    };
    on("sheet") = [this](dgView& view) { the_companions[name_of(&view)] = std::make_unique<grViewPaperParent>(&view); };
    on("paper") = [this](dgView& view, const std::string& sheet)
    {
        the_companions[name_of(&view)] =
            std::make_unique<grViewPaperChild>(&view, grViewPaperParent::ut_dynamic_cast(companion(sheet)));
    };
    on("drop") = [this](const std::string& name) { the_companions.erase(name); };
    on("orphan") = [](grView& view) { view.orphan(); };
    on("lock") = [](grView& view, int lock) { view.lock_child(lock); };
    on("hidden") = [](grView& view, int hidden) { view.hidden(hidden); };
    on("transparent") = [](grView& view) { view.background(grVIEW_BACKGROUND_TRANSPARENT); };
    on("unlock_tools") = [](grView& view) { view.clear_twiddle_locks(); };
    on("family") = [this](grView& view)
    {
        std::string text = view.view() ? "of " + name_of(view.view()) : "detached";
        text += view.parent() ? ", parent " + name_of(view.parent()->view()) : "";
        for (int i = 0; i < view.nchild_views(); ++i)
            text += ", child " + name_of(view.child(i)->view());
        if (const auto* child = grViewPaperChild::ut_dynamic_cast(&view); child && child->paper_parent())
            text += ", on " + name_of(child->paper_parent()->view());
        if (const auto* sheet = grViewPaperParent::ut_dynamic_cast(&view))
            for (int i = 0; i < sheet->npaper_child_views(); ++i)
                text += ", paper " + name_of(sheet->paper_child(i)->view());
        return text + (view.called_from_parent() ? ", pushing" : "");
    };
}

void tsStage::add_list_commands()
{
    add_setting("insert_paper_children_first", &grViewListUtils::insert_paper_children_first,
                &grViewListUtils::insert_paper_children_first);
    add_setting("erase_on_swap_buffers", &grViewListUtils::erase_on_swap_buffers,
                &grViewListUtils::erase_on_swap_buffers);
    // The views of the other words, dead ones too, as a list before and after.
    const auto with_list = [this](const std::string& name, std::function<void(dgViewcoDList&, tsArguments&)> work)
    {
        on(name) = [this, work](tsArguments& in)
        {
            dgViewcoDList views;
            while (in.more() && !in.next_is("+"))
                views.add_last(the_views.at(in.word()).view);
            work(views, in);
            return names_of(views);
        };
    };
    with_list("by_renderer",
              [](dgViewcoDList& views, tsArguments&) { grViewListUtils::sort_views_by_renderer(views); });
    with_list("by_library",
              [](dgViewcoDList& views, tsArguments&) { grViewListUtils::sort_views_into_dgs_order(views); });
    with_list("with_missing",
              [this](dgViewcoDList& views, tsArguments&)
              {
                  note_values({double(grViewListUtils::missing_renderer_views(views)),
                               double(grViewListUtils::add_renderer_views(views))});
              });
    with_list("with_children",
              [](dgViewcoDList& views, tsArguments& in) { grViewListUtils::find_child_views(&in.view(), views); });
    with_list("double_buffered", [this](dgViewcoDList& views, tsArguments&)
              { note_values({double(grViewListUtils::double_buffered_renderer(views))}); });
    // Views, and after "+" views that get an extra line of 10 segments (or none for "-").
    on("refresh") = [](const tsViews& views, tsArguments& in)
    {
        dgViewcoDList extra_views;
        dgStructurecoDList extras;
        const dgRef<dgStructure> icon = tsLine(10);
        while (in.more())
        {
            extras.add_last(in.next_is("-") ? nullptr : icon.get());
            extra_views.add_last(&in.view());
        }
        grViewListUtils::refresh_views(views, extra_views, extras);
    };
}
