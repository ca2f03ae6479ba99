#include "gwGLFWWindow.h"

#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "gwGLFWContext.h"
#include "gwGLFWKeys.h"
#include "gwHostEvents.h"
#include "gwSpaceballDevice.h"
#include "gwSpaceballReports.h"
#include "utTypeID.h"

#include <GLFW/glfw3.h>

#include <algorithm>

UT_DEFINE_TYPE(gwGLFWWindow, gwDrawingArea);

struct gwGLFWWindow::Native
{
    GLFWwindow* window = nullptr; // owned by the device's context
    std::shared_ptr<dgGLDevice> device;
    std::unique_ptr<dgGLWindow> framebuffers;
    std::unique_ptr<gwHostEvents> events;
    std::unique_ptr<gwSpaceballReports> reports;
    std::shared_ptr<gwSpaceballDevice> spaceball; // null without one
    std::function<void()> resized;
    std::function<void(const std::vector<std::string>&)> dropped;
    int frame[4] = {}; // place and size of a window that fills the screen now, screen coordinates
    int width = 0;     // device pixels of the native window, 0 while it is minimised
    int height = 0;
    int exposed = 1; // must be shown although nothing has changed
};

namespace
{
// Where spaceballs are not among the events that the window system waits for, they are looked for as often as this.
constexpr double spaceball_interval = 1.0 / 60;

// There is one connection in a process; all windows share it.
std::shared_ptr<gwSpaceballDevice> shared_spaceball()
{
    // Never destroyed: windows may live in static objects.
    static std::weak_ptr<gwSpaceballDevice>& the_device = *new std::weak_ptr<gwSpaceballDevice>;
    std::shared_ptr<gwSpaceballDevice> device = the_device.lock();
    if (!device)
        the_device = device = gwSpaceballDevice::open();
    return device;
}

gwGLFWWindow& owner(GLFWwindow* window)
{
    return *static_cast<gwGLFWWindow*>(glfwGetWindowUserPointer(window));
}
}

std::unique_ptr<gwGLFWWindow> gwGLFWWindow::create(const std::string& title, int width, int height, std::string& error)
{
    std::unique_ptr<gwGLFWContext> context = gwGLFWContext::create(title, width, height, error);
    if (!context)
        return nullptr;
    auto native = std::make_unique<Native>();
    native->window = context->window();
    native->device = dgGLDevice::create(std::move(context), error);
    if (!native->device)
        return nullptr;
    return std::unique_ptr<gwGLFWWindow>(new gwGLFWWindow(std::move(native)));
}

gwGLFWWindow::gwGLFWWindow(std::unique_ptr<Native> native) : the_native(std::move(native))
{
    the_native->events = std::make_unique<gwHostEvents>(*this);
    the_native->reports = std::make_unique<gwSpaceballReports>(*this);
    the_native->spaceball = shared_spaceball();
    the_native->reports->focus(glfwGetWindowAttrib(the_native->window, GLFW_FOCUSED));
    glfwSwapInterval(1);
    int width = 0, height = 0;
    glfwGetFramebufferSize(the_native->window, &width, &height);
    the_native->framebuffers = std::make_unique<dgGLWindow>(the_native->device, width, height);
    install_callbacks();
    framebuffer_resized(width, height);
    double x = 0, y = 0;
    glfwGetCursorPos(the_native->window, &x, &y);
    the_native->events->pointer(x, y);
}

gwGLFWWindow::~gwGLFWWindow() = default;

void gwGLFWWindow::install_callbacks()
{
    GLFWwindow* window = the_native->window;
    glfwSetWindowUserPointer(window, this);
    glfwSetCursorPosCallback(window,
                             [](GLFWwindow* w, double x, double y) { owner(w).the_native->events->pointer(x, y); });
    glfwSetMouseButtonCallback(window,
                               [](GLFWwindow* w, int button, int action, int modifiers) {
                                   owner(w).the_native->events->button(gw_glfw_button(button), action == GLFW_PRESS,
                                                                       gw_glfw_modifiers(modifiers));
                               });
    glfwSetKeyCallback(window,
                       [](GLFWwindow* w, int key, int scan_code, int action, int modifiers)
                       {
                           if (action != GLFW_REPEAT)
                               owner(w).the_native->events->key(gw_glfw_key(key, glfwGetKeyName(key, scan_code)),
                                                                action == GLFW_PRESS, gw_glfw_modifiers(modifiers));
                       });
    glfwSetScrollCallback(window, [](GLFWwindow* w, double, double y) { owner(w).the_native->events->wheel(y); });
    glfwSetWindowFocusCallback(window,
                               [](GLFWwindow* w, int focused)
                               {
                                   owner(w).the_native->reports->focus(focused);
                                   if (!focused)
                                       owner(w).the_native->events->focus_lost();
                               });
    glfwSetFramebufferSizeCallback(window, [](GLFWwindow* w, int width, int height)
                                   { owner(w).framebuffer_resized(width, height); });
    glfwSetDropCallback(window,
                        [](GLFWwindow* w, int count, const char** names)
                        {
                            // A copy: the callback may replace itself.
                            if (const auto dropped = owner(w).the_native->dropped)
                                dropped({names, names + count});
                        });
    glfwSetWindowRefreshCallback(window, [](GLFWwindow* w) { owner(w).the_native->exposed = 1; });
}

void gwGLFWWindow::framebuffer_resized(int width, int height)
{
    // Motion that waits was reported for the old size.
    the_native->events->flush();
    the_native->width = width;
    the_native->height = height;
    if (width < 1 || height < 1)
        return;
    int screen_width = 0, screen_height = 0;
    glfwGetWindowSize(the_native->window, &screen_width, &screen_height);
    if (screen_width > 0 && screen_height > 0)
        the_native->events->scale(static_cast<double>(width) / screen_width,
                                  static_cast<double>(height) / screen_height);
    if (width == the_native->framebuffers->width() && height == the_native->framebuffers->height())
        return;
    the_native->framebuffers->resize(width, height);
    the_native->exposed = 1;
    if (the_native->resized)
        the_native->resized();
}

int gwGLFWWindow::width() const
{
    return the_native->width;
}

int gwGLFWWindow::height() const
{
    return the_native->height;
}

void gwGLFWWindow::resize(int width, int height)
{
    int screen_width = 0, screen_height = 0;
    glfwGetWindowSize(the_native->window, &screen_width, &screen_height);
    const double x_scale = the_native->width > 0 ? static_cast<double>(screen_width) / the_native->width : 1;
    const double y_scale = the_native->height > 0 ? static_cast<double>(screen_height) / the_native->height : 1;
    glfwSetWindowSize(the_native->window, std::max(static_cast<int>(width * x_scale + 0.5), 1),
                      std::max(static_cast<int>(height * y_scale + 0.5), 1));
}

dgWindow* gwGLFWWindow::main_window() const
{
    return the_native->framebuffers.get();
}

dgWindow* gwGLFWWindow::overlay_window() const
{
    return the_native->framebuffers->overlay();
}

dgGLDevice& gwGLFWWindow::device() const
{
    return *the_native->device;
}

void gwGLFWWindow::title(const std::string& title)
{
    glfwSetWindowTitle(the_native->window, title.c_str());
}

void gwGLFWWindow::fine_wheel(int on)
{
    the_native->events->fine_wheel(on);
}

void gwGLFWWindow::resize_callback(std::function<void()> callback)
{
    the_native->resized = std::move(callback);
}

void gwGLFWWindow::drop_callback(std::function<void(const std::vector<std::string>&)> callback)
{
    the_native->dropped = std::move(callback);
}

int gwGLFWWindow::full_screen() const
{
    return glfwGetWindowMonitor(the_native->window) != nullptr;
}

void gwGLFWWindow::full_screen(int on)
{
    GLFWwindow* window = the_native->window;
    auto& [x, y, width, height] = the_native->frame;
    if (!on && full_screen())
        glfwSetWindowMonitor(window, nullptr, x, y, width, height, GLFW_DONT_CARE);
    if (!on || full_screen())
        return;
    glfwGetWindowPos(window, &x, &y);
    glfwGetWindowSize(window, &width, &height);
    int count = 0, most = -1;
    GLFWmonitor* best = glfwGetPrimaryMonitor();
    GLFWmonitor** monitors = glfwGetMonitors(&count);
    for (int i = 0; i < count; ++i)
    {
        int left = 0, top = 0;
        glfwGetMonitorPos(monitors[i], &left, &top);
        const GLFWvidmode* mode = glfwGetVideoMode(monitors[i]);
        const int shared = mode ? std::max(std::min(x + width, left + mode->width) - std::max(x, left), 0) *
                                      std::max(std::min(y + height, top + mode->height) - std::max(y, top), 0)
                                : -1;
        if (shared <= most)
            continue;
        most = shared;
        best = monitors[i];
    }
    if (const GLFWvidmode* mode = best ? glfwGetVideoMode(best) : nullptr)
        glfwSetWindowMonitor(window, best, 0, 0, mode->width, mode->height, mode->refreshRate);
}

void gwGLFWWindow::process_events(int wait, double timeout)
{
    if (the_native->exposed || the_native->framebuffers->front_changed())
        show();
    const int spaceball = the_native->spaceball && glfwGetWindowAttrib(the_native->window, GLFW_FOCUSED);
    if (wait && spaceball && !the_native->spaceball->wakes_windows() && !(timeout > 0 && timeout < spaceball_interval))
        timeout = spaceball_interval;
    if (!wait)
        glfwPollEvents();
    else if (timeout > 0)
        glfwWaitEventsTimeout(timeout);
    else
        glfwWaitEvents();
    the_native->events->flush();
    if (spaceball)
        read_spaceball();
}

void gwGLFWWindow::read_spaceball()
{
    // However many reports wait, the views are moved and drawn once.
    const gwHostEvents& events = *the_native->events;
    the_native->reports->pointer(events.x_device(), events.y_device(), events.modifiers());
    the_native->spaceball->read(*the_native->reports);
    the_native->reports->flush();
}

void gwGLFWWindow::show()
{
    the_native->exposed = 0;
    if (!the_native->width || !the_native->height)
        return;
    the_native->device->context().make_current();
    // After the exchange the native back buffer may hold anything, so that nothing less than all is copied.
    the_native->framebuffers->blit_front_to(0, the_native->framebuffers->device_box());
    glfwSwapBuffers(the_native->window);
}

int gwGLFWWindow::should_close() const
{
    return glfwWindowShouldClose(the_native->window);
}

void gwGLFWWindow::close()
{
    glfwSetWindowShouldClose(the_native->window, GLFW_TRUE);
}
