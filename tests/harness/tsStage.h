#pragma once

#include "apClockOverride.h"
#include "dgRef.h"
#include "dgTraceWindow.h"
#include "gwHeadlessWindow.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

class dgRenderer;
class dgStructure;
class dgView;
class grView;
class giPoint3;
class tsStage;

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
    double number_or(double value) { return more() ? number() : value; }
    int integer() { return static_cast<int>(number()); }
    int integer_or(int value) { return more() ? integer() : value; }
    giPoint3 point();
    /// A live view by its name.
    dgView& view();
    /// All other words, joined by blanks.
    std::string rest();
    /// 1 when this word is the next one, which is then read.
    int next_is(const std::string& word);

private:
    tsStage& the_stage;
    std::vector<std::string> the_words;
    std::size_t the_next = 0;
};

/// Some of a stage's commands with what they work on.
class tsPart
{
public:
    explicit tsPart(tsStage& stage) : the_stage(stage) {}
    virtual ~tsPart() = default;

protected:
    std::function<void(tsArguments&)>& on(const std::string& name);
    tsStage& the_stage;
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
    void note(std::initializer_list<double> values);

    /// A call of the library into the application: recorded, unless it is a quiet one that no script asked for; then
    /// what a script or interrupt wants done inside is done.
    void called(const std::string& name, int quiet = 0);
    /// Carries out a command inside call number i, counted from 0. Where there is nothing to do it to, nothing is done.
    void interrupt(int call, const std::string& command);
    int n_calls() const { return the_n_calls; }
    std::string name_of_call(int i) const { return the_calls[static_cast<std::size_t>(i)]; }

    /// What is broken of all that must hold between two commands; empty when nothing is.
    std::string complaint();

    using Command = std::function<void(tsArguments&)>;
    /// The command of a name, to be assigned.
    Command& on(const std::string& name) { return the_commands[name]; }
    /// A setting of the process, put back when the stage goes.
    template <class Value>
    void add_setting(const std::string& name, Value (*get)(), void (*set)(Value))
    {
        the_settings[name] = [this, get, set](tsArguments& in)
        {
            the_restores.push_back([set, before = get()] { set(before); });
            set(static_cast<Value>(in.number()));
        };
    }
    /// Done before anything is destroyed, the last one first.
    void at_end(std::function<void()> work) { the_restores.push_back(std::move(work)); }

    struct Window
    {
        Window(int width, int height, int with_overlay);
        ~Window();
        gwHeadlessWindow input;
        dgTraceWindow surface;
        std::unique_ptr<dgTraceWindow> overlay;
        std::unique_ptr<dgRenderer> own_renderer;
        dgRenderer* renderer = nullptr; // another's when a canvas has it; null once it is gone
    };
    /// i counts from 1.
    Window& window(int i = 1) { return *the_windows.at(static_cast<std::size_t>(i - 1)); }
    int n_windows() const { return static_cast<int>(the_windows.size()); }

    /// Null when it does not exist, any more or yet.
    dgView* find_view(const std::string& name) const;
    std::string name_of(const dgView* view) const;
    /// The names of all live views.
    std::vector<std::string> view_names() const;
    /// Makes a view known that another owns.
    std::string adopt(dgView& view);
    grView* companion(const std::string& name) const;
    const std::map<std::string, std::unique_ptr<grView>>& companions() const { return the_companions; }

    apClockOverride clock;

private:
    void run_one(const std::string& command);
    void drain();
    grView* live_companion(const std::string& name) const;
    void add_view_commands();
    void add_companion_commands();
    void add_list_commands();

    std::map<std::string, Command> the_commands, the_settings;
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
    std::vector<std::unique_ptr<tsPart>> the_parts; // go first
};

std::unique_ptr<tsPart> ts_tool_part(tsStage& stage);
std::unique_ptr<tsPart> ts_refresh_part(tsStage& stage);
std::unique_ptr<tsPart> ts_band_part(tsStage& stage);
