#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTraceWindow.h"
#include "dgView.h"
#include "gwHeadlessWindow.h"
#include "tsShapes.h"

#include <memory>
#include <string>
#include <vector>

/// A structure of one polyline with that many segments of length 1 along x, starting at the origin.
inline dgRef<dgStructure> tsLine(int n_segments)
{
    const dgRef<dgStructure> structure(new dgClientStructure);
    structure->add(ts_line(n_segments));
    return structure;
}

/// Windows of the trace driver with a renderer each, and views on them. View i, counted from 0 through all windows, has
/// a root of i + 1 line segments, so that a log line "draw lines 3 of 1" is the drawing of view 2.
class tsScene
{
public:
    /// Starts with one window of 100 by 100 pixels.
    tsScene() { add_window(); }
    tsScene(const tsScene&) = delete;
    tsScene& operator=(const tsScene&) = delete;
    ~tsScene() { the_views.clear(); }

    int add_window(int width = 100, int height = 100)
    {
        the_windows.push_back(std::make_unique<Window>(width, height));
        return static_cast<int>(the_windows.size()) - 1;
    }
    dgTraceWindow& window(int i = 0) { return at(i).surface; }
    dgRenderer& renderer(int i = 0) { return at(i).renderer; }
    gwHeadlessWindow& input_window(int i = 0) { return at(i).input; }

    /// A view over the whole window.
    dgView* add_view(int window = 0) { return add_view(window, renderer(window).window_box()); }
    dgView* add_view(int window, const giBox2& view_port)
    {
        the_views.push_back(std::make_unique<dgView>(&renderer(window)));
        dgView* view = the_views.back().get();
        view->camera().view_port_dc(view_port);
        const dgRef<dgStructure> root = tsLine(n_views());
        view->root(root.get());
        return view;
    }
    int n_views() const { return static_cast<int>(the_views.size()); }
    dgView* view(int i) { return the_views[static_cast<std::size_t>(i)].get(); }
    /// Destroys a view; the others keep their numbers.
    void delete_view(int i) { the_views[static_cast<std::size_t>(i)].reset(); }

    /// What a window recorded since the last call, without the brackets around drawing and without presentations.
    std::vector<std::string> take_log(int i = 0)
    {
        std::vector<std::string> lines;
        for (const std::string& line : window(i).log())
            if (line != "begin" && line != "end" && line != "present")
                lines.push_back(line);
        window(i).clear_log();
        return lines;
    }

private:
    struct Window
    {
        Window(int width, int height)
            : input(width, height), surface(width, height), renderer(&surface, nullptr, &input)
        {}
        gwHeadlessWindow input;
        dgTraceWindow surface;
        dgRenderer renderer;
    };
    Window& at(int i) { return *the_windows[static_cast<std::size_t>(i)]; }

    std::vector<std::unique_ptr<Window>> the_windows;
    std::vector<std::unique_ptr<dgView>> the_views;
};

/// Puts a process-wide setting back at the end of its life, through a getter and a setter.
template <class Value>
class tsSetting
{
public:
    tsSetting(Value before, void (*setter)(Value)) : the_before(before), the_setter(setter) {}
    ~tsSetting() { the_setter(the_before); }
    tsSetting(const tsSetting&) = delete;
    tsSetting& operator=(const tsSetting&) = delete;

private:
    Value the_before;
    void (*the_setter)(Value);
};
