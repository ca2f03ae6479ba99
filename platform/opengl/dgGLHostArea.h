#pragma once

#include "dg_openglExport.h"
#include "gwDrawingArea.h"

#include <functional>
#include <memory>
#include <string>

class dgGLDevice;
class dgGLWindow;
class dgWindow;
class gwHostEvents;
struct dgImage;

/// A window of the library inside somebody else's: what a toolkit's OpenGL widget, or an application with an event loop
/// of its own, needs to show views.
///
/// The host makes one when its context is there, passes events to events(), calls resize when its size in device pixels
/// changes, paint when it repaints, and idle while that answers 1. What it draws itself in the same context is not
/// touched. One thread uses it.
class DG_OPENGL_EXPORT dgGLHostArea : public gwDrawingArea
{
public:
    /// Of a size in device pixels, in the context that make_current makes current (see dgGLContext::adopt; it may be
    /// empty). Null on failure, with the reason in error.
    static std::unique_ptr<dgGLHostArea> create(std::function<int()> make_current, int width, int height,
                                                std::string& error);

    /// The same with a device that exists, which several areas may share.
    dgGLHostArea(std::shared_ptr<dgGLDevice> device, int width, int height);
    ~dgGLHostArea() override;
    dgGLHostArea(const dgGLHostArea&) = delete;
    dgGLHostArea& operator=(const dgGLHostArea&) = delete;

    /// Device pixels; 0 while the host is minimised.
    int width() const override { return the_width; }
    int height() const override { return the_height; }

    /// The host has another size. Its framebuffers are then empty, and the resize callback draws everything again.
    void resize(int width, int height) override;
    void resize_callback(std::function<void()> callback);

    /// Where renderers draw. Both belong to the area and are equal in size to it.
    dgWindow* main_window() const;
    dgWindow* overlay_window() const;
    dgGLDevice& device() const;

    /// Where the host's callbacks report what happened.
    gwHostEvents& events() { return *the_events; }

    /// 1 when paint would show something new: the host then asks its toolkit for a repaint.
    int wants_paint() const;

    /// Copies the picture into a framebuffer of the host, into its lower left corner; 0 is that of the window system.
    void paint(unsigned framebuffer);
    /// The same into the framebuffer that is bound for drawing.
    void paint();

    /// Reads the picture, for hosts that can take it in no other way.
    void read(dgImage& image);

    /// Called by idle: does a little of what is to be done while nothing happens, as grTwiddleMan::idle, and answers
    /// whether there is more.
    void idle_callback(std::function<int()> callback);

    /// Posts motion that was held back and calls the idle callback once. To be called after events, and while it
    /// answers 1, whenever no event waits.
    int idle();

    UT_DECLARE_TYPE(dgGLHostArea, gwWindow);

private:
    std::unique_ptr<dgGLWindow> the_framebuffers;
    std::unique_ptr<gwHostEvents> the_events;
    std::function<void()> the_resized;
    std::function<int()> the_idle;
    int the_width;
    int the_height;
};
