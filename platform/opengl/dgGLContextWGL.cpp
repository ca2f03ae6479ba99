// Contexts without a window to be seen, by WGL: they belong to a window that stays hidden.
#include "dgGLContext.h"

#include "dgGLEntryPoints.h"

#include <epoxy/wgl.h>

// The system's own: libepoxy's looks all entry points up again after each call.
#undef wglMakeCurrent

namespace
{
constexpr wchar_t class_name[] = L"gr off-screen context";

// A window of this library's own class, which must not outlive the library where that is unloaded.
class HiddenWindow
{
public:
    HiddenWindow()
    {
        HMODULE library = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           class_name, &library);
        WNDCLASSW description = {};
        description.style = CS_OWNDC;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = library;
        description.lpszClassName = class_name;
        RegisterClassW(&description); // fails when it is there already
        the_window = CreateWindowW(class_name, L"", WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr, library, nullptr);
        the_context = the_window ? GetDC(the_window) : nullptr;
    }
    ~HiddenWindow()
    {
        if (the_window)
            DestroyWindow(the_window);
    }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    HDC context() const { return the_context; }

    // The window only stands for the context: what is drawn goes into framebuffers.
    bool choose_format() const
    {
        PIXELFORMATDESCRIPTOR wanted = {};
        wanted.nSize = sizeof wanted;
        wanted.nVersion = 1;
        wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
        wanted.iPixelType = PFD_TYPE_RGBA;
        wanted.cColorBits = 24;
        const int format = ChoosePixelFormat(the_context, &wanted);
        return format && SetPixelFormat(the_context, format, &wanted);
    }

private:
    HWND the_window = nullptr;
    HDC the_context = nullptr;
};

// Puts the context back that was current when it was made.
class CurrentContext
{
public:
    CurrentContext() : the_window(wglGetCurrentDC()), the_context(wglGetCurrentContext()) {}
    ~CurrentContext() { wglMakeCurrent(the_window, the_context); }
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;

private:
    HDC the_window;
    HGLRC the_context;
};

class WGLOffScreenContext : public dgGLContext
{
public:
    WGLOffScreenContext(std::unique_ptr<HiddenWindow> window, HGLRC context)
        : the_window(std::move(window)), the_context(context)
    {}
    ~WGLOffScreenContext() override
    {
        if (wglGetCurrentContext() == the_context)
            done();
        wglDeleteContext(the_context);
    }

    int make_current() override
    {
        return wglGetCurrentContext() == the_context || wglMakeCurrent(the_window->context(), the_context);
    }
    void done() override { wglMakeCurrent(nullptr, nullptr); }
    std::string name() const override { return "WGL hidden window"; }

private:
    std::unique_ptr<HiddenWindow> the_window;
    HGLRC the_context;
};

// Only a context of any version has the function that makes one of version 3.3.
HGLRC make_context(HDC window, std::string& why)
{
    const HGLRC any = wglCreateContext(window);
    if (!any)
    {
        why = "no OpenGL";
        return nullptr;
    }
    const CurrentContext before;
    HGLRC context = nullptr;
    if (wglMakeCurrent(window, any))
    {
        const auto create = reinterpret_cast<PFNWGLCREATECONTEXTATTRIBSARBPROC>(
            reinterpret_cast<void*>(wglGetProcAddress("wglCreateContextAttribsARB")));
        const int attributes[] = {
            WGL_CONTEXT_MAJOR_VERSION_ARB,    3, WGL_CONTEXT_MINOR_VERSION_ARB, 3, WGL_CONTEXT_PROFILE_MASK_ARB,
            WGL_CONTEXT_CORE_PROFILE_BIT_ARB, 0};
        context = create ? create(window, nullptr, attributes) : nullptr;
        wglMakeCurrent(nullptr, nullptr);
    }
    wglDeleteContext(any);
    if (!context)
        why = "no OpenGL 3.3";
    return context;
}
}

std::unique_ptr<dgGLContext> dgGLContext::create_off_screen(std::string& error)
{
    error.clear();
    auto window = std::make_unique<HiddenWindow>();
    std::string why = "no window can be made";
    HGLRC context = nullptr;
    if (window->context())
    {
        why = "no pixel format for OpenGL";
        if (window->choose_format())
            context = make_context(window->context(), why);
    }
    if (!context)
    {
        error = "WGL hidden window: " + why;
        return nullptr;
    }
    auto found = std::make_unique<WGLOffScreenContext>(std::move(window), context);
    if (found->make_current())
        return found;
    error = "WGL hidden window: the context cannot be made current";
    return nullptr;
}

void dg_gl_update_entry_points()
{
    thread_local HGLRC last = nullptr;
    const HGLRC current = wglGetCurrentContext();
    if (!current || current == last)
        return;
    last = current;
    epoxy_handle_external_wglMakeCurrent();
}
