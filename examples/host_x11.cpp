// Turns a tarn file with the mouse in a window of Xlib's, with a context of EGL's: host_x11 part.tarn
#include "dgClientStructure.h"
#include "dgGLHostArea.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "gr_read_tarn_tblock.h"
#include "gwHostEvents.h"
#include "gwResourceDB.h"

#include <epoxy/egl.h>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <fstream>
#include <iostream>

namespace
{
// A window, and a context to draw in it. All null where something is missing.
struct Host
{
    Display* display = XOpenDisplay(nullptr);
    Window window = 0;
    Atom close_message = 0;
    EGLDisplay egl = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;

    Host(const char* name, unsigned width, unsigned height)
    {
        const EGLint config_wanted[] = {EGL_RENDERABLE_TYPE,
                                        EGL_OPENGL_BIT,
                                        EGL_SURFACE_TYPE,
                                        EGL_WINDOW_BIT,
                                        EGL_RED_SIZE,
                                        8,
                                        EGL_GREEN_SIZE,
                                        8,
                                        EGL_BLUE_SIZE,
                                        8,
                                        EGL_NONE};
        const EGLint context_wanted[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3, EGL_NONE};
        EGLConfig config = nullptr;
        EGLint found = 0, visual_id = 0;
        if (!display)
            return;
        egl = eglGetDisplay(display);
        if (!eglInitialize(egl, nullptr, nullptr) || !eglBindAPI(EGL_OPENGL_API) ||
            !eglChooseConfig(egl, config_wanted, &config, 1, &found) || !found)
            return;
        eglGetConfigAttrib(egl, config, EGL_NATIVE_VISUAL_ID, &visual_id);
        XVisualInfo wanted = {};
        wanted.visualid = static_cast<VisualID>(visual_id);
        XVisualInfo* visual = XGetVisualInfo(display, VisualIDMask, &wanted, &found);
        if (!visual)
            return;

        XSetWindowAttributes attributes = {};
        attributes.colormap = XCreateColormap(display, DefaultRootWindow(display), visual->visual, AllocNone);
        attributes.event_mask = StructureNotifyMask | ExposureMask | PointerMotionMask | ButtonPressMask |
                                ButtonReleaseMask | KeyPressMask | KeyReleaseMask | FocusChangeMask;
        window = XCreateWindow(display, DefaultRootWindow(display), 0, 0, width, height, 0, visual->depth, InputOutput,
                               visual->visual, CWColormap | CWBorderPixel | CWEventMask, &attributes);
        XFree(visual);
        XStoreName(display, window, name);
        close_message = XInternAtom(display, "WM_DELETE_WINDOW", False);
        XSetWMProtocols(display, window, &close_message, 1);
        XkbSetDetectableAutoRepeat(display, True, nullptr); // a key that repeats is not released
        XMapWindow(display, window);
        surface = eglCreateWindowSurface(egl, config, window, nullptr);
        context = eglCreateContext(egl, config, EGL_NO_CONTEXT, context_wanted);
    }

    int make_current() const
    {
        return eglGetCurrentContext() == context || eglMakeCurrent(egl, surface, surface, context);
    }
};

// X has four buttons for the wheel; of those behind it the first one is 8.
void report_button(const XButtonEvent& event, gwHostEvents& events)
{
    events.pointer(event.x, event.y);
    const int number = static_cast<int>(event.button);
    if (number == Button4 || number == Button5)
        events.wheel(event.type == ButtonRelease ? 0 : number == Button4 ? 1 : -1);
    else if (number < 4 || number > 7)
        events.button(number < 4 ? number : number - 4, event.type == ButtonPress, gw_x_modifiers(event.state));
}

// Passes one event on; 0 when it asks for the end.
int report(XEvent& event, const Host& host, dgGLHostArea& area)
{
    gwHostEvents& events = area.events();
    switch (event.type)
    {
    case ClientMessage: return static_cast<Atom>(event.xclient.data.l[0]) != host.close_message;
    case MotionNotify: events.pointer(event.xmotion.x, event.xmotion.y); break;
    case ButtonPress:
    case ButtonRelease: report_button(event.xbutton, events); break;
    case KeyPress:
    case KeyRelease:
        events.key(gw_keysym_key(static_cast<unsigned>(XLookupKeysym(&event.xkey, 0))), event.type == KeyPress,
                   gw_x_modifiers(event.xkey.state));
        break;
    case FocusOut: events.focus_lost(); break;
    case ConfigureNotify:
        if (event.xconfigure.width != area.width() || event.xconfigure.height != area.height())
            area.resize(event.xconfigure.width, event.xconfigure.height);
        break;
    }
    return 1;
}
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    if (!gr_read_tarn_tblock(file, part.get()))
        return std::cerr << "host_x11: no triangle blocks could be read\n", 1;
    const Host host("host_x11", 800, 600);
    std::string error = "no display";
    const auto area =
        host.display ? dgGLHostArea::create([&] { return host.make_current(); }, 800, 600, error) : nullptr;
    if (!area)
        return std::cerr << "host_x11: " << error << '\n', 1;

    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                          "qwerty_key 82 : reset");
    grCanvas canvas(area->main_window(), area->overlay_window(), area.get(), &settings);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.view_bbox();
    grStdTwiddling twiddling(&area->input(), &settings, nullptr, nullptr);
    area->idle_callback([&] { return twiddling.twiddle_man()->idle() != grIDLE_DONE; });
    area->resize_callback([&] { canvas.resize(area->width(), area->height()); });
    canvas.redraw();

    for (int running = 1, more = 0, exposed = 0; running;)
    {
        // Waits for an event where nothing moves by itself.
        for (XEvent event; running && (XPending(host.display) || !more); more = 1)
        {
            XNextEvent(host.display, &event);
            exposed |= event.type == Expose;
            running = report(event, host, *area);
        }
        more = area->idle();
        if (area->wants_paint() || exposed)
        {
            area->paint(0);
            eglSwapBuffers(host.egl, host.surface);
            exposed = 0;
        }
    }
}
