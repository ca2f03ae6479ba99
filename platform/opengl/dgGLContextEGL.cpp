// Contexts without a window, by EGL.
#include "dgGLContext.h"

#include "dgGLEntryPoints.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>

#include <cstring>
#include <utility>
#include <vector>

namespace
{
// One word of a blank-separated list.
bool lists(const char* extensions, const char* name)
{
    const std::size_t length = std::strlen(name);
    for (const char* at = extensions; at && (at = std::strstr(at, name)); at += length)
        if ((at == extensions || at[-1] == ' ') && (at[length] == ' ' || at[length] == '\0'))
            return true;
    return false;
}

class EGLOffScreenContext : public dgGLContext
{
public:
    EGLOffScreenContext(EGLDisplay display, EGLContext context, const char* way)
        : the_display(display), the_context(context), the_way(way)
    {}
    ~EGLOffScreenContext() override
    {
        if (eglGetCurrentContext() == the_context)
            done();
        // The display stays open: displays are shared in a process and closing one would close it for all.
        eglDestroyContext(the_display, the_context);
    }

    int make_current() override
    {
        return eglGetCurrentContext() == the_context ||
               eglMakeCurrent(the_display, EGL_NO_SURFACE, EGL_NO_SURFACE, the_context) == EGL_TRUE;
    }
    void done() override { eglMakeCurrent(the_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT); }
    std::string name() const override { return std::string("EGL ") + the_way; }

private:
    EGLDisplay the_display;
    EGLContext the_context;
    const char* the_way;
};

// The version of what there is, for a display that cannot give what is needed; empty: nothing.
std::string version_there(EGLDisplay display, EGLConfig config)
{
    const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    if (context == EGL_NO_CONTEXT)
        return {};
    const EGLDisplay display_before = eglGetCurrentDisplay();
    const EGLSurface draw = eglGetCurrentSurface(EGL_DRAW), read = eglGetCurrentSurface(EGL_READ);
    const EGLContext before = eglGetCurrentContext();
    std::string version;
    if (eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context))
    {
        if (const auto* text = reinterpret_cast<const char*>(glGetString(GL_VERSION)))
            version = text;
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (before != EGL_NO_CONTEXT)
            eglMakeCurrent(display_before, draw, read, before);
    }
    eglDestroyContext(display, context);
    return version;
}

EGLContext make_context(EGLDisplay display, std::string& why)
{
    if (!eglInitialize(display, nullptr, nullptr))
    {
        why = "display cannot be opened";
        return EGL_NO_CONTEXT;
    }
    const char* extensions = eglQueryString(display, EGL_EXTENSIONS);
    if (!lists(extensions, "EGL_KHR_surfaceless_context"))
    {
        why = "contexts need a surface";
        return EGL_NO_CONTEXT;
    }
    const EGLint wanted[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_SURFACE_TYPE, EGL_DONT_CARE, EGL_NONE};
    EGLConfig config = EGL_NO_CONFIG_KHR;
    EGLint nconfigs = 0;
    if (!eglChooseConfig(display, wanted, &config, 1, &nconfigs) || nconfigs == 0)
    {
        config = EGL_NO_CONFIG_KHR;
        if (!lists(extensions, "EGL_KHR_no_config_context"))
        {
            why = "no configuration for OpenGL";
            return EGL_NO_CONTEXT;
        }
    }
    const EGLint attributes[] = {
        EGL_CONTEXT_MAJOR_VERSION,           3,       EGL_CONTEXT_MINOR_VERSION, 3, EGL_CONTEXT_OPENGL_PROFILE_MASK,
        EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
    EGLContext context = EGL_NO_CONTEXT;
    if (eglBindAPI(EGL_OPENGL_API))
        context = eglCreateContext(display, config, EGL_NO_CONTEXT, attributes);
    if (context == EGL_NO_CONTEXT)
    {
        const std::string there = version_there(display, config);
        why = "no OpenGL 3.3" + (there.empty() ? there : ", only " + there);
    }
    return context;
}

class Search
{
public:
    explicit Search(std::string& error) : the_error(error) {}

    // Tries one display; 1 when it gave a context that can be made current.
    int attempt(EGLDisplay display, const char* way)
    {
        std::string why = "no such display";
        const EGLContext context = display == EGL_NO_DISPLAY ? EGL_NO_CONTEXT : make_context(display, why);
        if (context != EGL_NO_CONTEXT)
        {
            auto found = std::make_unique<EGLOffScreenContext>(display, context, way);
            if (found->make_current())
            {
                the_context = std::move(found);
                return 1;
            }
            why = "context cannot be made current";
        }
        the_error += std::string(the_error.empty() ? "" : "; ") + "EGL " + way + ": " + why;
        return 0;
    }

    std::unique_ptr<dgGLContext> the_context;

private:
    std::string& the_error;
};

bool try_hardware(Search& search, const char* client_extensions)
{
    if (!lists(client_extensions, "EGL_EXT_platform_device") || !lists(client_extensions, "EGL_EXT_platform_base") ||
        !(lists(client_extensions, "EGL_EXT_device_base") || lists(client_extensions, "EGL_EXT_device_enumeration")))
        return false;
    EGLint count = 0;
    if (!eglQueryDevicesEXT(0, nullptr, &count) || count < 1)
        return false;
    std::vector<EGLDeviceEXT> devices(static_cast<std::size_t>(count));
    if (!eglQueryDevicesEXT(count, devices.data(), &count))
        return false;
    devices.resize(static_cast<std::size_t>(count));
    for (const EGLDeviceEXT device : devices)
    {
        if (lists(eglQueryDeviceStringEXT(device, EGL_EXTENSIONS), "EGL_MESA_device_software"))
            continue;
        if (search.attempt(eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, device, nullptr), "device"))
            return true;
    }
    return false;
}
}

std::unique_ptr<dgGLContext> dgGLContext::create_off_screen(std::string& error)
{
    error.clear();
    if (!epoxy_has_egl())
    {
        error = "EGL is not installed";
        return nullptr;
    }
    const char* client_extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    Search search(error);
    if (!try_hardware(search, client_extensions) &&
        !(lists(client_extensions, "EGL_MESA_platform_surfaceless") &&
          search.attempt(eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr),
                         "surfaceless")))
        search.attempt(eglGetDisplay(EGL_DEFAULT_DISPLAY), "default display");
    if (search.the_context)
        error.clear();
    return std::move(search.the_context);
}

// The entry points serve all contexts.
void dg_gl_update_entry_points() {}
