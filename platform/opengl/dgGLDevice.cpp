#include "dgGLDevice.h"

#include "dgGLClusters.h"
#include "dgGLContext.h"
#include "dgGLEntryPoints.h"
#include "dgGLGeometryStore.h"
#include "dgGLPrograms.h"
#include "dgGLSavedState.h"
#include "dgGLTextStore.h"

#include <epoxy/gl.h>

#include <utility>

std::shared_ptr<dgGLDevice> dgGLDevice::create(std::unique_ptr<dgGLContext> context, std::string& error)
{
    error.clear();
    if (!context->make_current())
    {
        error = context->name() + ": the context cannot be made current";
        return nullptr;
    }
    dg_gl_update_entry_points();
    if (epoxy_gl_version() < 33)
    {
        error = context->name() + ": OpenGL 3.3 is needed, " + std::to_string(epoxy_gl_version() / 10) + "." +
                std::to_string(epoxy_gl_version() % 10) + " is there";
        return nullptr;
    }
    std::shared_ptr<dgGLDevice> device(new dgGLDevice(std::move(context)));
    const Use use(*device);
    if (!device->the_programs->compile_basics(error))
        return nullptr;
    return device;
}

std::shared_ptr<dgGLDevice> dgGLDevice::create_off_screen(std::string& error)
{
    std::unique_ptr<dgGLContext> context = dgGLContext::create_off_screen(error);
    return context ? create(std::move(context), error) : nullptr;
}

dgGLDevice::dgGLDevice(std::unique_ptr<dgGLContext> context)
    : the_context(std::move(context)), the_programs(std::make_unique<dgGLPrograms>()),
      the_geometry(std::make_unique<dgGLGeometryStore>()), the_clusters(std::make_unique<dgGLClusters>()),
      the_texts(std::make_unique<dgGLTextStore>())
{
    const Use use(*this);
    glGenBuffers(1, &the_stream_buffer);
    glGenVertexArrays(1, &the_stream_array);
    glBindVertexArray(the_stream_array);
    glBindBuffer(GL_ARRAY_BUFFER, the_stream_buffer);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(0);
    float range[2] = {1, 1};
    glGetFloatv(GL_ALIASED_LINE_WIDTH_RANGE, range);
    // A forward-compatible context refuses to draw lines of any other width.
    int flags = 0;
    glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
    the_line_width_limit = flags & GL_CONTEXT_FLAG_FORWARD_COMPATIBLE_BIT ? 1 : range[1];
}

dgGLDevice::~dgGLDevice()
{
    const Use use(*this);
    if (use)
    {
        glDeleteVertexArrays(1, &the_stream_array);
        glDeleteBuffers(1, &the_stream_buffer);
        glDeleteSync(static_cast<GLsync>(the_last_fence));
    }
    else
    {
        // Its objects are gone with it; those of another context may have their numbers.
        the_geometry->abandon();
        the_programs->abandon();
    }
    the_texts.reset();
    the_geometry.reset();
    the_programs.reset();
}

int dgGLDevice::make_current()
{
    if (!the_lost && !the_context->make_current())
        the_lost = 1;
    if (!the_lost)
        dg_gl_update_entry_points();
    return !the_lost;
}

void dgGLDevice::begin_use()
{
    const int current = make_current();
    if (the_uses++ > 0 || !current || !the_context->shared())
        return;
    if (!the_application_state)
        the_application_state = std::make_unique<dgGLSavedState>();
    the_application_state->record();
    if (!the_initial_state)
        the_initial_state = std::make_unique<dgGLSavedState>(the_application_state->initial());
    the_initial_state->put_back();
    the_state_is_put_away = 1;
    the_modes_owner = nullptr;
    the_programs->forget_current();
}

void dgGLDevice::end_use()
{
    if (--the_uses > 0 || !std::exchange(the_state_is_put_away, 0))
        return;
    if (make_current())
        the_application_state->put_back();
    the_modes_owner = nullptr;
}

std::string dgGLDevice::name() const
{
    if (!const_cast<dgGLDevice*>(this)->make_current())
        return the_context->name() + ", lost";
    const auto text = [](unsigned what) { return std::string(reinterpret_cast<const char*>(glGetString(what))); };
    return text(GL_RENDERER) + ", OpenGL " + text(GL_VERSION) + ", " + the_context->name();
}

void dgGLDevice::make_no_levels()
{
    the_geometry->make_no_levels();
}

void dgGLDevice::stream_points(const float* xyz, int npoints)
{
    glBindVertexArray(the_stream_array);
    glBindBuffer(GL_ARRAY_BUFFER, the_stream_buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(npoints) * 3 * GLsizeiptr(sizeof(float)), xyz,
                 GL_STREAM_DRAW);
}

void dgGLDevice::finish()
{
    if (make_current())
        glFinish();
}

void dgGLDevice::finish_all_but_last()
{
    if (!make_current())
        return;
    const auto before =
        static_cast<GLsync>(std::exchange(the_last_fence, glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0)));
    glFlush();
    if (!before)
        return;
    constexpr GLuint64 a_second = 1000000000;
    while (glClientWaitSync(before, 0, a_second) == GL_TIMEOUT_EXPIRED)
        ;
    glDeleteSync(before);
}

int dgGLDevice::no_errors()
{
    if (!make_current())
        return 0;
    // There is a handful of error flags; a context that is lost by itself reports one for ever.
    int errors = 0;
    while (errors < 16 && glGetError() != GL_NO_ERROR)
        ++errors;
    return errors == 0;
}
