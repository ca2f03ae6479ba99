#pragma once

#include "apClockOverride.h"
#include "dgRef.h"
#include "dgS.h"
#include "dgTraceWindow.h"
#include "giBox2.h"
#include "giPoint3.h"
#include "gwHeadlessWindow.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

class dgRenderer;
class dgStructure;
class dgView;
class grView;
class tsStage;

/// A number that a command may leave out.
template <auto Default>
struct tsOr
{
    static constexpr auto fallback = Default;
    decltype(Default) value;
    operator decltype(Default)() const { return value; }
};

/// All other words of a command, joined by blanks.
struct tsRest : std::string
{};

/// Views, up to the end of a command or to a "+".
struct tsViews : dgViewcoDList
{};

/// A window of the trace driver with its renderer.
struct tsWindow
{
    tsWindow(int width, int height, int with_overlay);
    ~tsWindow();
    gwHeadlessWindow input;
    dgTraceWindow surface;
    std::unique_ptr<dgTraceWindow> overlay;
    std::unique_ptr<dgRenderer> own_renderer;
    dgRenderer* renderer = nullptr; // another's when a canvas has it; null once it is gone
};

/// The words of a command that are still to be read. Each function throws std::runtime_error for a word that is missing
/// or of another kind.
class tsArguments
{
public:
    tsArguments(tsStage& stage, std::vector<std::string> words) : the_stage(stage), the_words(std::move(words)) {}
    int more() const { return the_next < the_words.size(); }
    std::string word();
    std::string word_or(const std::string& text) { return more() ? word() : text; }
    /// An arithmetic expression.
    double number();
    int integer() { return static_cast<int>(number()); }
    /// A live view by its name, and the live companion of one.
    dgView& view();
    grView& companion();
    tsViews views();
    tsWindow& window();
    std::string rest();
    /// 1 when this word is the next one, which is then read.
    int next_is(const std::string& word);

private:
    tsStage& the_stage;
    std::vector<std::string> the_words;
    std::size_t the_next = 0;
};

/// The name of a command, to be given its function.
struct tsNewCommand
{
    tsStage& stage;
    std::string name;
    template <class Function>
    void operator=(Function function);
};

/// Where scripts are played: windows of the trace driver with a renderer each, views on them, and in its parts tools,
/// refreshers and rubber bands, all made and driven by commands of one line, on a clock that only commands and drawing
/// move. Everything that the library draws, and every call that it makes into the application, becomes a record of one
/// line, in order. tests/harness/README.md lists commands and records.
class tsStage
{
public:
    tsStage();
    ~tsStage();
    tsStage(const tsStage&) = delete;
    tsStage& operator=(const tsStage&) = delete;

    /// Carries out commands separated by ";". Throws std::runtime_error for one that is not understood.
    void run(const std::string& commands);
    /// What was recorded since the last call.
    std::vector<std::string> take();
    void note(const std::string& record);
    /// Notes values as one record.
    void note_values(const std::vector<double>& values);

    /// A call of the library into the application: recorded, unless it is a quiet one that no script asked for; then
    /// what a script or interrupt wants done inside is done.
    void called(const std::string& name, int quiet = 0);
    /// Carries out commands inside call number i, counted from 0. Where there is nothing to do it to, nothing is done.
    void interrupt(int call, const std::string& commands);
    int n_calls() const { return the_n_calls; }
    std::string name_of_call(int i) const { return the_calls[static_cast<std::size_t>(i)]; }

    /// What is broken of all that must hold between two commands; empty when nothing is.
    std::string complaint();

    /// on("NAME") = function makes a command of a function, which takes what ts_read can read; what it answers is
    /// noted. See tsCommand.h.
    tsNewCommand on(const std::string& name) { return {*this, name}; }
    /// A setting of the process, put back when the stage goes.
    template <class Value>
    void add_setting(const std::string& name, Value (*get)(), void (*set)(Value))
    {
        the_settings[name] = [this, get, set](double value)
        {
            at_end([set, before = get()] { set(before); });
            set(static_cast<Value>(value));
        };
    }
    /// Done before anything is destroyed, the last one first.
    void at_end(std::function<void()> work) { the_restores.push_back(std::move(work)); }

    using Window = tsWindow;
    /// i counts from 1.
    Window& window(int i = 1) { return *the_windows.at(static_cast<std::size_t>(i - 1)); }
    int n_windows() const { return static_cast<int>(the_windows.size()); }

    /// Null when it does not exist, any more or yet.
    dgView* find_view(const std::string& name) const;
    std::string name_of(const dgView* view) const;
    /// "none" for no views.
    std::string names_of(const dgViewcoDList& views) const;
    /// The names of all live views.
    std::vector<std::string> view_names() const;
    /// Makes a view known that another owns.
    std::string adopt(dgView& view);
    grView* companion(const std::string& name) const;
    const std::map<std::string, std::unique_ptr<grView>>& companions() const { return the_companions; }

    apClockOverride clock;

private:
    using Command = std::function<void(tsArguments&)>;
    friend struct tsNewCommand;
    void run_one(const std::string& command);
    void drain();
    void add_view_commands();
    void add_companion_commands();
    void add_list_commands();

    std::map<std::string, Command> the_commands;
    std::map<std::string, std::function<void(double)>> the_settings;
    std::vector<std::function<void()>> the_restores;
    std::vector<std::string> the_records;
    std::set<std::string> the_told; // quiet calls that are recorded
    struct When
    {
        std::string call, commands;
    };
    std::vector<When> the_whens;
    std::vector<std::string> the_calls;
    int the_n_calls = 0;
    int the_interrupted_call = -1;
    std::string the_interruption;

    std::vector<std::unique_ptr<Window>> the_windows;
    struct View
    {
        dgView* view;
        std::unique_ptr<dgView> own;
    };
    std::map<std::string, View> the_views;
    std::map<std::string, std::unique_ptr<grView>> the_companions;
    struct Watch;
    std::vector<std::unique_ptr<Watch>> the_watches;
    std::vector<std::shared_ptr<void>> the_parts; // go first
};

/// More commands, with what they work on.
std::shared_ptr<void> ts_tool_part(tsStage& stage);
std::shared_ptr<void> ts_refresh_part(tsStage& stage);
std::shared_ptr<void> ts_band_part(tsStage& stage);
