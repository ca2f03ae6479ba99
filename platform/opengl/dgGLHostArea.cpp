#include "dgGLHostArea.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "gwHostEvents.h"

#include <epoxy/gl.h>

#include <algorithm>

UT_DEFINE_TYPE(dgGLHostArea, gwDrawingArea);

std::unique_ptr<dgGLHostArea> dgGLHostArea::create(std::function<int()> make_current, int width, int height,
                                                   std::string& error)
{
    std::unique_ptr<dgGLContext> context = dgGLContext::adopt(std::move(make_current), error);
    std::shared_ptr<dgGLDevice> device = context ? dgGLDevice::create(std::move(context), error) : nullptr;
    return device ? std::make_unique<dgGLHostArea>(std::move(device), width, height) : nullptr;
}

dgGLHostArea::dgGLHostArea(std::shared_ptr<dgGLDevice> device, int width, int height)
    : the_framebuffers(std::make_unique<dgGLWindow>(std::move(device), width, height)),
      the_events(std::make_unique<gwHostEvents>(*this)), the_width(std::max(width, 0)), the_height(std::max(height, 0))
{}

dgGLHostArea::~dgGLHostArea() = default;

void dgGLHostArea::resize(int width, int height)
{
    // Motion that waits was reported for the old size.
    the_events->flush();
    the_width = std::max(width, 0);
    the_height = std::max(height, 0);
    if (the_width < 1 || the_height < 1 ||
        (the_width == the_framebuffers->width() && the_height == the_framebuffers->height()))
        return;
    the_framebuffers->resize(the_width, the_height);
    if (the_resized)
        the_resized();
}

void dgGLHostArea::resize_callback(std::function<void()> callback)
{
    the_resized = std::move(callback);
}

dgWindow* dgGLHostArea::main_window() const
{
    return the_framebuffers.get();
}

dgWindow* dgGLHostArea::overlay_window() const
{
    return the_framebuffers->overlay();
}

dgGLDevice& dgGLHostArea::device() const
{
    return the_framebuffers->device();
}

int dgGLHostArea::wants_paint() const
{
    return the_framebuffers->front_changed();
}

void dgGLHostArea::paint(unsigned framebuffer)
{
    the_framebuffers->blit_front_to(framebuffer, the_framebuffers->device_box());
}

void dgGLHostArea::paint()
{
    int bound = 0;
    if (!device().lost())
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
    paint(static_cast<unsigned>(bound));
}

void dgGLHostArea::read(dgImage& image)
{
    the_framebuffers->read_front(image);
    the_framebuffers->blit_front_to(0, giBox2()); // nothing but that it has been seen
}

void dgGLHostArea::idle_callback(std::function<int()> callback)
{
    the_idle = std::move(callback);
}

int dgGLHostArea::idle()
{
    the_events->flush();
    return the_idle ? the_idle() : 0;
}
