#pragma once

#include "gwDrawingArea.h"
#include "gw_glfwExport.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class dgGLDevice;
class dgWindow;

/// A native window that events come from and that shows what is drawn on its framebuffers. One thread uses it.
///
/// Drawing goes to framebuffers of the window's size in device pixels, which main_window and overlay_window draw on;
/// what they hold is shown by process_events when it has changed. Events are posted on the area's input with positions
/// in device pixels, whatever the scale of the screen.
class GW_GLFW_EXPORT gwGLFWWindow : public gwDrawingArea
{
public:
    /// Opens a window; width and height are screen coordinates, which are device pixels unless the window system scales
    /// them. title is UTF-8. Null on failure (no display, no OpenGL 3.3), with the reason in error.
    static std::unique_ptr<gwGLFWWindow> create(const std::string& title, int width, int height, std::string& error);
    ~gwGLFWWindow() override;
    gwGLFWWindow(const gwGLFWWindow&) = delete;
    gwGLFWWindow& operator=(const gwGLFWWindow&) = delete;

    int width() const override;
    int height() const override;
    /// Asks the window system for another size; the area has it when the resize callback runs.
    void resize(int width, int height) override;

    /// Where renderers draw. Both belong to the window and are equal in size to it.
    dgWindow* main_window() const;
    dgWindow* overlay_window() const;
    dgGLDevice& device() const;

    void title(const std::string& title);

    /// Whether wheel events carry their travel as it is, which suits tools that act in proportion to it, or are posted
    /// one for each whole step, as at first.
    void fine_wheel(int on);
    /// Called after the window has got another size in device pixels and its framebuffers with it: they are then empty,
    /// and everything has to be drawn again. Not called for a window that is minimised.
    void resize_callback(std::function<void()> callback);

    /// Called with the names, in UTF-8, of files that were dropped on the window.
    void drop_callback(std::function<void(const std::vector<std::string>&)> callback);

    /// Fills the screen that shows most of the window, without a frame, or gives it the place and size from before.
    void full_screen(int on);
    int full_screen() const;

    /// Shows what was drawn and posts the events that wait. With wait 1 it first waits until there are any, at most for
    /// timeout seconds if that is above 0. While a spaceball is connected and the window has the focus, it
    /// waits for a 60th of a second at most, and posts the motion of that time as one event.
    void process_events(int wait, double timeout = 0);

    /// Shows the front buffer and the overlay over it now.
    void show();

    /// 1 once the user or close() has asked for the end.
    int should_close() const;
    void close();

    UT_DECLARE_TYPE(gwGLFWWindow, gwWindow);

private:
    struct Native;
    explicit gwGLFWWindow(std::unique_ptr<Native> native);
    void install_callbacks();
    void read_spaceball();
    void framebuffer_resized(int width, int height);

    std::unique_ptr<Native> the_native;
};
