#pragma once

#include "dg_openglExport.h"

#include <memory>

class dgGLDevice;

/// Lets the library draw in an OpenGL context in which the application draws too.
///
/// While one exists the context's state is that of a new context, whatever the application had set; when it ends all is
/// as the application had it: programs, buffers, textures and framebuffers that were bound, capabilities, masks, clear
/// values, viewports, scissor boxes and pixel storage. Every call that may draw, read back or make windows lies within
/// one: refreshes, posted events, idle calls, sizes, the ends of windows and devices. They nest. One costs about
/// two hundred queries of the driver, which wait for nothing.
///
/// Conditional rendering, transform feedback and queries of samples must not be under way. Texture unit 0 is the only
/// one that the library uses.
class DG_OPENGL_EXPORT dgGLStateGuard
{
public:
    /// The device's context must be the current one, here and at the end.
    explicit dgGLStateGuard(dgGLDevice& device);
    ~dgGLStateGuard();
    dgGLStateGuard(const dgGLStateGuard&) = delete;
    dgGLStateGuard& operator=(const dgGLStateGuard&) = delete;

private:
    struct Saved;
    dgGLDevice& the_device;
    std::unique_ptr<Saved> the_saved;
};
